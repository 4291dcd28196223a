// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/look/app_icon.h"

#include <gtest/gtest.h>

#include <QPainter>

#include "desktop/look/palette.h"
#include "support/pictures.h"

namespace quillet {
namespace {

using namespace Qt::Literals::StringLiterals;

double paintIcon(QPainter& painter, const QPointF& corner, const QIcon& icon) {
  double x = corner.x();
  for (const QSize& size : icon.availableSizes()) {
    if (size.width() > 48) break;
    painter.drawPixmap(QPointF(x, corner.y()), icon.pixmap(size));
    x += size.width() + 8;
  }
  return x;
}

TEST(AppIconTest, LooksAsItDid) {
  constexpr int kHalf = 120;
  QImage image(490, 2 * kHalf, QImage::Format_RGB32);
  QPainter painter(&image);
  for (const Scheme scheme : {Scheme::light, Scheme::dark}) {
    const Palette palette(scheme, Contrast::normal);
    const double top = scheme == Scheme::light ? 0 : kHalf;
    painter.fillRect(QRectF(0, top, image.width(), kHalf), palette[Token::side]);
    paintIcon(painter, {8, top + 8}, applicationIcon());
    const QColor& ink = palette[Token::text];
    const QColor& dot = palette[Token::accentText];
    const double x = paintIcon(painter, {8, top + 64}, trayIcon(ink, dot, TrayNews::none));
    paintIcon(painter, {x + 16, top + 64}, trayIcon(ink, dot, TrayNews::unread));
  }
  painter.end();
  EXPECT_TRUE(looksLike(u"app-icon@1"_s, image));
}

}  // namespace
}  // namespace quillet
