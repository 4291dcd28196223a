// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/sections/search/start_rows.h"

#include <QPainter>

#include "desktop/lists/chip.h"
#include "desktop/look/focus_ring.h"
#include "desktop/look/look.h"
#include "desktop/look/pixel_grid.h"

namespace quillet {

namespace {

constexpr int kCardHeight = 64;
constexpr double kCardCorner = 10;
constexpr double kCardPadding = 16;
constexpr double kCardIcon = 16;
constexpr double kCardText = 48;
constexpr double kChevron = 12;
constexpr double kTitleLine = 18;
constexpr double kLineGap = 2;
constexpr double kSubtitleLine = 16;
constexpr TypeStyle kCardTitle{13, 600};

constexpr int kLinkHeight = 32;
constexpr double kLinkCorner = 7;
constexpr double kLinkPadding = 8;
constexpr double kLinkIcon = 14;
constexpr double kLinkText = 32;
constexpr double kGap = 12;

/// Rectangles and anchors of a row, mirrored where it is.
class RowPlaces {
 public:
  explicit RowPlaces(const QWidget& row)
      : isMirrored_(row.layoutDirection() == Qt::RightToLeft), width_(row.width()) {}

  [[nodiscard]] QRectF at(double left, double width, double top, double height) const {
    return {isMirrored_ ? width_ - left - width : left, top, width, height};
  }
  [[nodiscard]] TextAnchor start() const {
    return isMirrored_ ? TextAnchor::right : TextAnchor::left;
  }
  [[nodiscard]] bool isMirrored() const { return isMirrored_; }

 private:
  bool isMirrored_;
  double width_;
};

}  // namespace

StartCard::StartCard(const QString& title, const QString& subtitle, QWidget* parent)
    : QPushButton(parent), title_(title), subtitle_(subtitle) {
  setAccessibleName(title);
  setAccessibleDescription(subtitle);
  setAttribute(Qt::WA_Hover);
  setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
  setRingCorner(*this, kCardCorner);
}

QSize StartCard::sizeHint() const { return {kCardHeight, 2 * grownLine(*this, kCardHeight / 2)}; }

void StartCard::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  Look& look = lookOf(*this);
  const bool isDark = look.palette.scheme() == Scheme::dark;
  QColor fill = look[isDark ? Token::raised : Token::base];
  if (isDown())
    fill = look[Token::neutralTint];
  else if (underMouse())
    fill = look[Token::hover];
  paintBox(painter, rect(), kCardCorner, fill, {look[Token::edge]});
  const RowPlaces places(*this);
  const double middle = height() / 2.0;
  look.icons.draw(painter,
                  places.at(kCardPadding, kCardIcon, middle - kCardIcon / 2, kCardIcon).topLeft(),
                  QStringLiteral("sliders2"), kCardIcon, look[Token::accentText]);
  const double end = width() - kCardPadding - kChevron;
  const double textWidth = end - kGap - kCardText;
  const double scale = look.growth();
  const double lines = (kTitleLine + kLineGap + kSubtitleLine) * scale;
  const double top = std::floor(middle - lines / 2);
  look.text.drawElided(painter,
                       {places.at(kCardText, textWidth, top, kTitleLine * scale), places.start()},
                       title_, kCardTitle, look[Token::text]);
  look.text.drawElided(painter,
                       {places.at(kCardText, textWidth, top + (kTitleLine + kLineGap) * scale,
                                  kSubtitleLine * scale),
                        places.start()},
                       subtitle_, kFactType, look[Token::secondary]);
  look.icons.draw(
      painter, places.at(end, kChevron, middle - kChevron / 2, kChevron).topLeft(),
      places.isMirrored() ? QStringLiteral("chevron-left") : QStringLiteral("chevron-right"),
      kChevron, look[Token::tertiary]);
}

StartLink::StartLink(const QString& icon, const QString& text, const QString& aside,
                     QWidget* parent)
    : QPushButton(parent), icon_(icon), text_(text), aside_(aside) {
  setAccessibleName(aside.isEmpty() ? text : text + QStringLiteral(", ") + aside);
  setAttribute(Qt::WA_Hover);
  setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
}

QSize StartLink::sizeHint() const { return {kLinkHeight, grownLine(*this, kLinkHeight)}; }

void StartLink::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  Look& look = lookOf(*this);
  if (isDown()) {
    paintBox(painter, rect(), kLinkCorner, look[Token::neutralTint]);
  } else if (underMouse()) {
    paintBox(painter, rect(), kLinkCorner, look[Token::hover]);
  }
  const RowPlaces places(*this);
  look.icons.draw(
      painter, places.at(kLinkPadding, kLinkIcon, (height() - kLinkIcon) / 2, kLinkIcon).topLeft(),
      icon_, kLinkIcon, look[Token::tertiary]);
  const double asideWidth = look.text.width(aside_, kCaptionType);
  const double end = width() - kLinkPadding - asideWidth;
  look.text.draw(painter, {places.at(end, asideWidth, 0, height()), places.start()}, aside_,
                 kCaptionType, look[Token::tertiary]);
  const double room = end - kLinkText - (asideWidth > 0 ? kGap : 0);
  look.text.drawElided(painter, {places.at(kLinkText, room, 0, height()), places.start()}, text_,
                       kBodyType, look[Token::text]);
}

}  // namespace quillet
