// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

// Charts of prices, as pictures that are compared.

#include "desktop/charts/step_chart.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QPainter>

#include "desktop/charts/histories.h"
#include "desktop/look/quillet_style.h"
#include "support/pictures.h"

namespace quillet {
namespace {

using namespace Qt::Literals::StringLiterals;

/// Often on sale, with a target below: what most charts are like.
PriceHistory onSale() {
  PriceHistory history = historyOf({{"2025-10-02", 9.99},
                                    {"2025-12-30", 4.99},
                                    {"2026-01-21", 9.99},
                                    {"2026-03-24", 4.99},
                                    {"2026-04-06", 9.99},
                                    {"2026-06-27", 4.99},
                                    {"2026-07-09", 9.99},
                                    {"2026-09-05", 4.99},
                                    {"2026-09-12", 9.99},
                                    {"2026-10-28", 4.99}});
  history.low = {4.99, u"Lowest $4.99, from 28 Oct to today"_s};
  history.target = {2.99, u"Target"_s};
  return history;
}

/// Dear, changed a little: not from zero. The target lies on the low.
PriceHistory dear() {
  PriceHistory history =
      historyOf({{"2025-10-02", 189.99}, {"2026-02-01", 199.99}, {"2026-08-01", 194.99}});
  history.low = {189.99, u"Low $189.99, last on 31 Jan"_s};
  history.target = {189.99, u"Target"_s};
  return history;
}

/// Known for a part of the year, of many prices, free once.
PriceHistory manyPrices() {
  PriceHistory history = historyOf({{"2026-02-10", 12.99},
                                    {"2026-03-20", 11.99},
                                    {"2026-04-11", 7.99},
                                    {"2026-06-02", 0},
                                    {"2026-06-05", 9.99},
                                    {"2026-09-14", 10.49}});
  history.low = {0, u"Free, last on 4 Jun"_s};
  return history;
}

class StepChartTest : public testing::TestWithParam<std::tuple<Scheme, double>> {};

TEST_P(StepChartTest, LooksAsItDid) {
  const auto [scheme, ratio] = GetParam();
  auto& style = *qobject_cast<QuilletStyle*>(QApplication::style());
  style.setPalette(Palette(scheme, Contrast::normal));
  const bool isWhole = ratio == 1;
  const QSize size(544, isWhole ? 560 : 192);
  QImage image(size * ratio, QImage::Format_RGB32);
  image.setDevicePixelRatio(ratio);
  QPainter painter(&image);
  painter.fillRect(QRect({}, size), style.look()[Token::base]);
  double y = 12;
  for (const PriceHistory& history : {onSale(), dear(), manyPrices()}) {
    StepChart(history).paint(painter, style.look(), QRectF(16, y, 512, StepChart::kHeight));
    y += StepChart::kHeight + 16;
    if (!isWhole) break;
  }
  painter.end();
  style.setPalette({Scheme::light, Contrast::normal});
  const QString name = QStringLiteral("step-chart-%1@%2")
                           .arg(scheme == Scheme::dark ? u"dark"_s : u"light"_s)
                           .arg(ratio);
  EXPECT_TRUE(looksLike(name, image));
}

INSTANTIATE_TEST_SUITE_P(Schemes, StepChartTest,
                         testing::Values(std::tuple(Scheme::light, 1.0),
                                         std::tuple(Scheme::dark, 1.5)));

TEST(StepChartTest, LeavesTimesInAnotherCurrencyBare) {
  auto& look = qobject_cast<QuilletStyle*>(QApplication::style())->look();
  PriceHistory history = historyOf({{"2025-11-20", 9.99}, {"2026-08-20", 4.99}});
  history.steps[0].until = day("2026-02-20");
  history.low = {2.99, {}};
  history.target = {3.99, u"Target"_s};
  const auto drawn = [&] {
    QImage image(544, 168, QImage::Format_RGB32);
    image.fill(look[Token::base]);
    QPainter painter(&image);
    StepChart(history).paint(painter, look, QRectF(0, 0, 544, 168));
    painter.end();
    // Between its ends, above the axis and below where it is said why.
    return image.copy(140, 40, 210, 100);
  };
  history.undrawn = {{day("2026-02-20"), day("2026-08-20"), {}}};
  const QImage left = drawn();
  history.low.reset();
  history.target->price = 9.99;
  const QImage bare = drawn();
  EXPECT_EQ(left, bare);
  history.target->price = 3.99;
  history.undrawn.clear();
  EXPECT_NE(drawn(), bare);
}

TEST(StepChartTest, DrawsWhatHardlyIsAHistory) {
  auto& look = qobject_cast<QuilletStyle*>(QApplication::style())->look();
  QImage image(544, 168, QImage::Format_RGB32);
  PriceHistory ofNow = historyOf({{"2026-11-20", 4.99}});
  ofNow.from = ofNow.now;
  for (const PriceHistory& history :
       {historyOf({}), historyOf({{"2026-01-01", 0}}), ofNow,
        historyOf({{"2020-01-01", 1}, {"2021-01-01", 2}}), historyOf({{"2030-01-01", 1}})}) {
    for (const double width : {544.0, 20.0}) {
      QPainter painter(&image);
      StepChart(history).paint(painter, look, QRectF(0, 0, width, 168));
    }
  }
}

}  // namespace
}  // namespace quillet
