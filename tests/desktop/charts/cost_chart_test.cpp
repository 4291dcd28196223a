// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/charts/cost_chart.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QPainter>
#include <QTest>

#include "desktop/look/quillet_style.h"
#include "support/pictures.h"

namespace quillet {
namespace {

using namespace Qt::Literals::StringLiterals;

TEST(CostPlot, AxesEndAtARoundAmountThatNothingExceeds) {
  const std::tuple<double, CostScale> rows[] = {
      {0, {1, 1}},      {0.99, {1.2, 0.4}},        {14.99, {15, 5}}, {99.99, {120, 40}},
      {120, {120, 40}}, {120.01, {150, 50}},       {3, {3, 1}},      {900, {1200, 400}},
      {1, {1.2, 0.4}},  {123456, {150000, 50000}},
  };
  for (const auto& [highest, scale] : rows) {
    const CostScale found = costScaleOf(highest);
    EXPECT_DOUBLE_EQ(found.top, scale.top) << highest;
    EXPECT_DOUBLE_EQ(found.step, scale.step) << highest;
  }
}

TEST(CostPlot, NamesStandApartInTheOrderOfTheirLines) {
  using Heights = std::vector<double>;
  const std::tuple<Heights, Heights> rows[] = {
      {{50, 10}, {50, 10}},        {{40, 41, 39}, {49, 59, 39}},
      {{20, 20}, {20, 30}},        {{100, 100, 98}, {90, 100, 80}},  // none below the bottom
      {{0, 100, 5}, {0, 100, 10}},
  };
  for (const auto& [heights, expected] : rows) {
    const Heights found = spreadApart(heights, 10, 0, 100);
    for (std::size_t i = 0; i < found.size(); ++i) {
      EXPECT_GE(found[i], 0);
      EXPECT_LE(found[i], 100);
      EXPECT_DOUBLE_EQ(found[i], expected[i]);
    }
  }
  const Heights crowd = spreadApart({5, 5, 5, 5, 5}, 10, 0, 20);
  EXPECT_EQ(crowd, (Heights{0, 5, 10, 15, 20})) << "as far apart as there is room";
}

CostPicture threeApps() {
  CostPicture picture;
  picture.lines = {{u"Quillink"_s, {39.99, 79.98, 99.99, 99.99, 99.99}},
                   {u"Pagewren"_s, {29.98, 54.97, 64.98, 64.98, 64.98}},
                   {u"Draftlark"_s, {14.99, 14.99, 14.99, 14.99, 14.99}, true}};
  picture.years = 3;
  picture.amountText = [](double amount) { return u"$%1"_s.arg(amount, 0, 'f', 2); };
  picture.axisText = [](double amount) { return u"$%1"_s.arg(amount, 0, 'f', 0); };
  return picture;
}

TEST(CostChart, GoesFromYearToYearByKeysAndTellsWhatAllHaveCost) {
  CostChart chart(u"Years to own"_s);
  chart.resize(844, 152);
  chart.show(threeApps(), u"Three lines."_s);
  chart.show();
  const auto told = [&] { return chart.accessibleDescription().toStdString(); };
  EXPECT_EQ(told(), "Three lines.");
  QTest::keyClick(&chart, Qt::Key_Right);
  EXPECT_EQ(told(), "After 3 years – Quillink: $99.99, Pagewren: $64.98, Draftlark: $14.99");
  for (int i = 0; i < 3; ++i) QTest::keyClick(&chart, Qt::Key_Left);
  EXPECT_EQ(told(), "After 1 year – Quillink: $39.99, Pagewren: $29.98, Draftlark: $14.99");
  chart.show({}, u"Several currencies."_s);
  QTest::keyClick(&chart, Qt::Key_Right);
  EXPECT_EQ(told(), "Several currencies.");
}

TEST(CostChart, LooksAsItDid) {
  auto& style = *qobject_cast<QuilletStyle*>(QApplication::style());
  for (const Scheme scheme : {Scheme::light, Scheme::dark}) {
    style.setPalette(Palette(scheme, Contrast::normal));
    QImage image(844, 168, QImage::Format_RGB32);
    image.fill(style.look()[Token::base]);
    QPainter painter(&image);
    CostPlot(threeApps()).paint(painter, style.look(), QRectF(8, 8, 828, 152));
    painter.end();
    EXPECT_TRUE(
        looksLike(scheme == Scheme::dark ? u"cost-chart-dark"_s : u"cost-chart-light"_s, image));
  }
  style.setPalette({Scheme::light, Contrast::normal});
}

}  // namespace
}  // namespace quillet
