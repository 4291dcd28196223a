// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/charts/price_chart.h"

#include <gtest/gtest.h>

#include <QTest>
#include <QToolTip>

#include "desktop/charts/histories.h"

namespace quillet {
namespace {

using namespace Qt::Literals::StringLiterals;

class PriceChartTest : public testing::Test {
 protected:
  PriceChartTest() {
    chart_.resize(544, 168);
    chart_.show(historyOf({{"2025-01-01", 9.99}, {"2025-10-02", 7.99}, {"2026-05-20", 4.99}}),
                u"Two prices."_s);
    chart_.show();
  }

  /// What is told with the pointer there.
  std::string at(int x) {
    QTest::mouseMove(&chart_, QPoint(x, 40));
    return told();
  }
  std::string after(Qt::Key key) {
    QTest::keyClick(&chart_, key);
    return told();
  }
  [[nodiscard]] std::string told() const { return chart_.accessibleDescription().toStdString(); }

  PriceChart chart_{u"Price history of Paperfold"_s};
};

TEST_F(PriceChartTest, TellsThePriceUnderThePointer) {
  EXPECT_EQ(told(), "Two prices.");
  EXPECT_EQ(at(10), "$7.99 from 2 Oct 2025 to 20 May 2026") << "it held before the left edge";
  EXPECT_EQ(at(400), "$4.99 since 20 May 2026");
  EXPECT_EQ(at(540), "Two prices.") << "the axis";
}

TEST_F(PriceChartTest, TellsACurrencyThatLooksLikeMarkupAsItIs) {
  PriceHistory history = historyOf({{"2025-01-01", 9.99}});
  history.priceText = [](double) { return u"10 <b>A</b>"_s; };
  chart_.show(history, {});
  at(400);
  EXPECT_EQ(QToolTip::text(), u"<p>10 &lt;b&gt;A&lt;/b&gt; since 1 Jan 2025</p>"_s);
}

TEST_F(PriceChartTest, GoesFromPriceToPriceByKeys) {
  EXPECT_EQ(after(Qt::Key_Left), "$4.99 since 20 May 2026");
  EXPECT_EQ(after(Qt::Key_Right), "$4.99 since 20 May 2026");
  EXPECT_EQ(after(Qt::Key_Left), "$7.99 from 2 Oct 2025 to 20 May 2026");
  EXPECT_EQ(after(Qt::Key_Left), "$7.99 from 2 Oct 2025 to 20 May 2026") << "what is shown";
  chart_.show(historyOf({}), u"None."_s);
  EXPECT_EQ(after(Qt::Key_Left), "None.");
  EXPECT_EQ(at(100), "None.");
}

}  // namespace
}  // namespace quillet
