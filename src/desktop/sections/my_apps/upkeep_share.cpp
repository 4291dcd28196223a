// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/sections/my_apps/upkeep_share.h"

#include <QLocale>
#include <QPainter>
#include <cmath>

#include "desktop/look/look.h"
#include "desktop/look/pixel_grid.h"
#include "desktop/look/widgets.h"
#include "desktop/models/time_words.h"

namespace quillet {

namespace {

constexpr double kBar = 8;
constexpr double kBarGap = 3;
constexpr double kCorner = 2;
constexpr double kLegendGap = 8;
constexpr double kLine = 16;
constexpr double kSquare = 8;
constexpr double kSquareGap = 6;
constexpr double kPartGap = 16;
constexpr double kCountGap = 4;
constexpr TypeStyle kType = kFactType.tabular();

QRectF mirroredIn(const QRectF& rect, const QWidget& widget) {
  if (!widget.isRightToLeft()) return rect;
  return {widget.width() - rect.right(), rect.top(), rect.width(), rect.height()};
}

}  // namespace

UpkeepShare::UpkeepShare(QWidget* parent) : QLabel(parent) {
  setTextFormat(Qt::PlainText);
  setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
}

void UpkeepShare::show(const UpkeepTally& tally, Instant now) {
  parts_.clear();
  for (const UpkeepColumn column :
       {UpkeepColumn::fine, UpkeepColumn::slowing, UpkeepColumn::stale, UpkeepColumn::abandoned})
    parts_.push_back({upkeepTitle(column), tally.apps.at(indexOf(column)), upkeepColor(column)});
  parts_.push_back({tr("not known"), tally.unknown, Token::emptyStar});
  age_.clear();
  if (tally.oldest)
    age_ = tr("Read from the last release alone · the oldest %1").arg(agoText(*tally.oldest, now));
  QStringList said;
  for (const Part& each : parts_) said << each.title + u' ' + QLocale().toString(each.apps);
  if (!age_.isEmpty()) said << age_;
  // Each change of a label's text is told to those who hear it.
  if (const QString text = said.join(QStringLiteral(", ")); text != this->text()) setText(text);
  update();
}

QSize UpkeepShare::sizeHint() const {
  return {0, static_cast<int>(std::ceil(kBar + kLegendGap + kLine * lookOf(*this).growth()))};
}

QSize UpkeepShare::minimumSizeHint() const { return sizeHint(); }

void UpkeepShare::paintBar(QPainter& painter) const {
  const Look& look = lookOf(*this);
  int all = 0;
  double room = width() + kBarGap;
  for (const Part& each : parts_) {
    all += each.apps;
    if (each.apps > 0) room -= kBarGap;
  }
  double left = 0;
  for (const Part& each : parts_) {
    if (each.apps == 0) continue;
    const double wide = std::max(kCorner, room * each.apps / all);
    paintBox(painter, mirroredIn({left, 0, wide, kBar}, *this), kCorner, look[each.color]);
    left += wide + kBarGap;
  }
}

/// Returns where it ends.
double UpkeepShare::paintLegend(QPainter& painter) const {
  Look& look = lookOf(*this);
  const double line = kLine * look.growth();
  const double top = kBar + kLegendGap;
  double left = 0;
  const auto text = [&](const QString& shown, Token color) {
    const double wide = look.text.width(shown, kType);
    look.text.draw(painter, {mirroredIn({left, top, wide, line}, *this)}, shown, kType,
                   look[color]);
    left += wide;
  };
  for (const Part& each : parts_) {
    paintBox(painter, mirroredIn({left, top + (line - kSquare) / 2, kSquare, kSquare}, *this),
             kCorner, look[each.color]);
    left += kSquare + kSquareGap;
    text(each.title, Token::secondary);
    left += kCountGap;
    text(QLocale().toString(each.apps), Token::tertiary);
    left += kPartGap;
  }
  return left;
}

void UpkeepShare::paintEvent(QPaintEvent* /*event*/) {
  if (parts_.empty()) return;
  QPainter painter(this);
  Look& look = lookOf(*this);
  paintBar(painter);
  const double end = paintLegend(painter);
  const double wide = look.text.width(age_, kType);
  const QRectF place(width() - wide, kBar + kLegendGap, wide, kLine * look.growth());
  if (place.left() >= end)
    look.text.draw(painter, {mirroredIn(place, *this)}, age_, kType, look[Token::tertiary]);
}

void UpkeepShare::changeEvent(QEvent* event) {
  QLabel::changeEvent(event);
  if (changesSizes(*event)) updateGeometry();
}

}  // namespace quillet
