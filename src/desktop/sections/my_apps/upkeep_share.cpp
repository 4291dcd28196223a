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
  // One that is fixed would keep the height of one line.
  setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Minimum);
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
  updateGeometry();
  update();
}

QSize UpkeepShare::sizeHint() const {
  return {0, static_cast<int>(std::ceil(kBar + kLegendGap + kLine * lookOf(*this).growth()))};
}

QSize UpkeepShare::minimumSizeHint() const { return sizeHint(); }

int UpkeepShare::heightForWidth(int width) const {
  return static_cast<int>(std::ceil(placesIn(width).back().y() + kLine * lookOf(*this).growth()));
}

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

double UpkeepShare::widthOf(const Part& part) const {
  Look& look = lookOf(*this);
  return kSquare + kSquareGap + look.text.width(part.title, kType) + kCountGap +
         look.text.width(QLocale().toString(part.apps), kType);
}

/// Where each part of the legend begins, and where the next one would, in lines of that width.
std::vector<QPointF> UpkeepShare::placesIn(double width) const {
  const double line = kLine * lookOf(*this).growth();
  std::vector<QPointF> places;
  QPointF next(0, kBar + kLegendGap);
  for (const Part& each : parts_) {
    const double wide = widthOf(each);
    if (next.x() > 0 && next.x() + wide > width) next = {0, next.y() + line};
    places.push_back(next);
    next.rx() += wide + kPartGap;
  }
  places.push_back(next);
  return places;
}

void UpkeepShare::paintPart(QPainter& painter, const Part& part, QPointF place) const {
  Look& look = lookOf(*this);
  const double line = kLine * look.growth();
  const auto text = [&](double wide, const QString& shown, Token color) {
    const TextAnchor anchor = isRightToLeft() ? TextAnchor::right : TextAnchor::left;
    look.text.drawElided(painter, {mirroredIn({place.x(), place.y(), wide, line}, *this), anchor},
                         shown, kType, look[color]);
    place.rx() += wide;
  };
  paintBox(painter,
           mirroredIn({place.x(), place.y() + (line - kSquare) / 2, kSquare, kSquare}, *this),
           kCorner, look[part.color]);
  const double beyond = std::max(0.0, place.x() + widthOf(part) - width());
  place.rx() += kSquare + kSquareGap;
  text(std::max(0.0, look.text.width(part.title, kType) - beyond), part.title, Token::secondary);
  place.rx() += kCountGap;
  const QString count = QLocale().toString(part.apps);
  text(look.text.width(count, kType), count, Token::tertiary);
}

void UpkeepShare::paintEvent(QPaintEvent* /*event*/) {
  if (parts_.empty()) return;
  QPainter painter(this);
  Look& look = lookOf(*this);
  paintBar(painter);
  const std::vector<QPointF> places = placesIn(width());
  for (std::size_t i = 0; i < parts_.size(); ++i) paintPart(painter, parts_[i], places[i]);
  const double wide = look.text.width(age_, kType);
  const QRectF place(width() - wide, places.back().y(), wide, kLine * look.growth());
  if (place.left() >= places.back().x())
    look.text.draw(painter, {mirroredIn(place, *this)}, age_, kType, look[Token::tertiary]);
}

void UpkeepShare::changeEvent(QEvent* event) {
  QLabel::changeEvent(event);
  if (changesSizes(*event)) updateGeometry();
}

}  // namespace quillet
