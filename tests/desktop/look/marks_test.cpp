// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

// The marks of rows and pages, as pictures that are compared.

#include "desktop/look/marks.h"

#include <gtest/gtest.h>

#include <QPainter>

#include "desktop/look/quillet_style.h"
#include "support/pictures.h"

namespace quillet {
namespace {

using namespace Qt::Literals::StringLiterals;

constexpr QSize kSheet(480, 300);

void paintPills(QPainter& painter, Look& look) {
  double x = 12;
  double y = 12;
  for (const PillSize size : {PillSize::small, PillSize::large}) {
    for (const Pill& pill :
         {Pill{PillKind::down, u"$4.99"_s, {}}, Pill{PillKind::up, u"14,99 €"_s, {}},
          Pill{PillKind::low, u"At its lowest"_s, {}}, Pill{PillKind::fresh, u"New"_s, {}},
          Pill{PillKind::neutral, u"Actively updated"_s, u"wrench-adjustable"_s}}) {
      x += paintPill(painter, look, {x, y}, pill, size) + 6;
    }
    x = 12;
    y += 32;
  }
}

void paintStarRows(QPainter& painter, Look& look) {
  for (int halves = 0; halves <= 10; ++halves) {
    const int row = halves / 6;
    const QPoint corner(12 + (halves % 6) * 66, 80 + row * 18);
    paintStars(painter, corner, halves, halves == 10 ? 13 : 11,
               {look[halves == 10 ? Token::star : Token::rowStar], look[Token::emptyStar]});
  }
}

void paintSparklines(QPainter& painter, Look& look) {
  const SparkColors colors{look[Token::spark], look[Token::down]};
  const std::vector<std::vector<SparkPoint>> histories{
      {{0, 9.99}, {0.2, 4.99}, {0.3, 9.99}, {0.8, 4.99}},
      {{0, 0.99}, {0.5, 2.99}},
      {{0, 1}, {0.33, 3}, {0.66, 2}},
      {{0, 5}, {0.7, 5}},  // never changed: nothing is drawn
      {{0.5, 5}},
  };
  double x = 12;
  for (const auto& history : histories) {
    paintSparkline(painter, QRectF(x, 124, 64, 24), history, colors);
    x += 76;
  }
}

void paintRest(QPainter& painter, Look& look, double ratio) {
  double x = 12;
  for (const Movement& movement : {Movement{2}, Movement{-14}, Movement{0}, Movement{}}) {
    paintMovement(painter, look, QRectF(x, 160, 44, 16), movement);
    x += 48;
  }
  paintBadge(painter, look, {240, 168}, u"3"_s);
  paintBadge(painter, look, {290, 168}, u"1,204"_s);
  paintUnreadDot(painter, look, {310, 168});
  x = 330;
  for (const double angle : {0.0, kProgressRingStep, 180.0}) {
    paintProgressRing(painter, look, {x, 160}, angle);
    x += 28;
  }
  paintPlaceholderRow(painter, look, QRectF(0, 236, 480, 64), 2);
  QImage artwork(128, 128, QImage::Format_RGB32);
  artwork.fill(QColor(0x2F, 0xA0, 0x8C));
  painter.drawPixmap(QPointF(12, 184), framedArtwork(artwork, 44, ratio, look[Token::artworkEdge]));
  x = 68;
  for (const QString& name : {u"Pagewren"_s, u"Ω Lab"_s, u" éclair"_s, QString()}) {
    painter.drawPixmap(QPointF(x, 184), letterTile(look, name, 44, ratio));
    x += 56;
  }
}

class MarksTest : public testing::TestWithParam<std::tuple<Scheme, double>> {};

TEST_P(MarksTest, LookAsTheyDid) {
  const auto [scheme, ratio] = GetParam();
  auto& style = *qobject_cast<QuilletStyle*>(QApplication::style());
  style.setPalette(Palette(scheme, Contrast::normal));
  Look& look = style.look();
  QImage image(kSheet * ratio, QImage::Format_RGB32);
  image.setDevicePixelRatio(ratio);
  QPainter painter(&image);
  painter.fillRect(QRect({}, kSheet), look[Token::base]);
  paintPills(painter, look);
  paintStarRows(painter, look);
  paintSparklines(painter, look);
  paintRest(painter, look, ratio);
  painter.end();
  const QString name =
      QStringLiteral("marks-%1@%2").arg(scheme == Scheme::dark ? u"dark"_s : u"light"_s).arg(ratio);
  EXPECT_TRUE(looksLike(name, image));
}

INSTANTIATE_TEST_SUITE_P(Schemes, MarksTest,
                         testing::Values(std::tuple(Scheme::light, 1.0),
                                         std::tuple(Scheme::dark, 1.5),
                                         std::tuple(Scheme::light, 2.0)));

}  // namespace
}  // namespace quillet
