// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/charts/price_chart.h"

#include <gtest/gtest.h>

#include <QAccessible>
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

/// At 0 below and $9.99 above, a pixel is some seven cents.
TEST_F(PriceChartTest, MovesTheTargetByItsHandleAndByKeys) {
  PriceHistory history = historyOf({{"2025-01-01", 9.99}, {"2026-05-20", 4.99}});
  history.target = PriceMark{2.99, u"Target"_s};
  chart_.show(history, {});
  std::vector<double> chosen;
  QObject::connect(&chart_, &PriceChart::targetChosen, &chart_,
                   [&chosen](double price) { chosen.push_back(price); });
  const auto drag = [this](const QPoint& from, const QPoint& to) {
    QTest::mousePress(&chart_, Qt::LeftButton, {}, from);
    QTest::mouseMove(&chart_, to);
    QTest::mouseRelease(&chart_, Qt::LeftButton, {}, to);
  };
  drag({530, 40}, {530, 60});
  EXPECT_EQ(chosen, std::vector<double>()) << "there is no handle";
  drag({530, 105}, {530, 500});
  EXPECT_EQ(chosen, std::vector{0.0}) << "as low as the axis goes";
  chart_.show(history, {});
  drag({530, 105}, {530, 78});
  ASSERT_EQ(chosen.size(), 2U);
  EXPECT_NEAR(chosen.back(), 4.99, 0.1);

  chart_.show(history, {});
  QTest::keyPress(&chart_, Qt::Key_Down, Qt::AltModifier);
  QTest::keyClick(&chart_, Qt::Key_Escape);
  EXPECT_EQ(chosen.size(), 2U);
  QTest::keyPress(&chart_, Qt::Key_Down, Qt::AltModifier);
  QTest::keyPress(&chart_, Qt::Key_Down, Qt::AltModifier);
  EXPECT_EQ(chosen.size(), 2U) << "not before it is let go";
  QTest::keyRelease(&chart_, Qt::Key_Alt);
  EXPECT_EQ(chosen, (std::vector{0.0, chosen[1], 1.99}));

  chart_.show(history, {});
  QTest::keyPress(&chart_, Qt::Key_Down, Qt::AltModifier);
  chart_.show(history, {});
  QTest::keyRelease(&chart_, Qt::Key_Alt);
  EXPECT_EQ(chosen.size(), 4U) << "what was read meanwhile takes no move away";
  chart_.show(history, {});
  QTest::keyPress(&chart_, Qt::Key_Down, Qt::AltModifier);
  chart_.leaveTarget();
  QTest::keyRelease(&chart_, Qt::Key_Alt);
  EXPECT_EQ(chosen.size(), 4U) << "another app is shown";
}

TEST_F(PriceChartTest, BeginsATargetWhereThereIsNone) {
  PriceHistory history = historyOf({{"2025-01-01", 9.99}, {"2026-05-20", 4.99}});
  std::vector<double> chosen;
  QObject::connect(&chart_, &PriceChart::targetChosen, &chart_,
                   [&chosen](double price) { chosen.push_back(price); });
  const auto press = [this] {
    QTest::keyPress(&chart_, Qt::Key_Down, Qt::AltModifier);
    QTest::keyRelease(&chart_, Qt::Key_Alt);
    QTest::mousePress(&chart_, Qt::LeftButton, {}, {530, 146});
    QTest::mouseRelease(&chart_, Qt::LeftButton, {}, {530, 146});
  };
  chart_.show(history, {});
  press();
  EXPECT_EQ(chosen, std::vector<double>()) << "nobody may";
  history.canTarget = true;
  chart_.show(history, u"Two prices."_s);
  QTest::keyPress(&chart_, Qt::Key_Down, Qt::AltModifier);
  QTest::keyClick(&chart_, Qt::Key_Escape);
  EXPECT_EQ(told(), "Two prices.");
  press();
  EXPECT_EQ(chosen, std::vector{4.49}) << "the axis is the target's own by then";
  chart_.show(history, {});
  QTest::mousePress(&chart_, Qt::LeftButton, {}, {530, 146});
  QTest::mouseRelease(&chart_, Qt::LeftButton, {}, {530, 146});
  EXPECT_EQ(chosen, (std::vector{4.49, 0.0}));
  chosen.clear();
  history.unit = 1;
  chart_.show(history, {});
  QTest::mousePress(&chart_, Qt::LeftButton, {}, {530, 78});
  QTest::mouseRelease(&chart_, Qt::LeftButton, {}, {530, 78});
  EXPECT_EQ(chosen, std::vector{5.0}) << "of a currency without cents";
}

TEST_F(PriceChartTest, TellsNothingOfTimesInAnotherCurrency) {
  PriceHistory history = historyOf({{"2025-01-01", 9.99}, {"2026-05-20", 4.99}});
  history.steps[0].until = day("2026-02-20");
  history.undrawn = {{day("2026-02-20"), day("2026-05-20"), u"In BGN"_s}};
  chart_.show(history, u"Two prices."_s);
  EXPECT_EQ(at(10), "$9.99 from 1 Jan 2025 to 20 Feb 2026");
  EXPECT_EQ(at(180), "Two prices.");
  EXPECT_EQ(at(400), "$4.99 since 20 May 2026");
}

TEST_F(PriceChartTest, IsATableForThoseWhoAreReadTo) {
  PriceHistory history =
      historyOf({{"2024-01-01", 19.99}, {"2025-01-01", 9.99}, {"2026-05-20", 4.99}});
  history.steps[1].origin = u"published price data"_s;
  history.steps[2].origin = u"seen by Quillet"_s;
  chart_.show(history, {});
  QAccessibleInterface* chart = QAccessible::queryAccessibleInterface(&chart_);
  auto* table =
      static_cast<QAccessibleTableInterface*>(chart->interface_cast(QAccessible::TableInterface));
  ASSERT_NE(table, nullptr);
  std::string text;
  for (int row = 0; row < table->rowCount(); ++row) {
    for (int column = 0; column < table->columnCount(); ++column) {
      QAccessibleInterface* cell = table->cellAt(row, column);
      EXPECT_EQ(chart->child(chart->indexOfChild(cell)), cell);
      text += table->columnDescription(column).toStdString() + ": " +
              cell->text(QAccessible::Name).toStdString() + "; ";
    }
  }
  EXPECT_EQ(text,
            "From: 1 Jan 2025; Until: 20 May 2026; Price: $9.99; Source: published price data; "
            "From: 20 May 2026; Until: now; Price: $4.99; Source: seen by Quillet; ");
  QAccessibleInterface* last = table->cellAt(1, 2);
  EXPECT_TRUE(table->selectRow(1));
  EXPECT_EQ(told(), "$4.99 since 20 May 2026 · seen by Quillet");
  EXPECT_TRUE(last->state().selected);
  chart_.show(historyOf({{"2026-05-20", 4.99}}), {});
  EXPECT_FALSE(last->isValid()) << "there is no such point any more";
}

}  // namespace
}  // namespace quillet
