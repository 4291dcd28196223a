// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/dialogs/step_list.h"

#include <QPainter>
#include <cmath>

#include "desktop/look/look.h"
#include "desktop/look/pixel_grid.h"

namespace quillet {

namespace {

constexpr double kLine = 32;
constexpr double kLineText = 18;  // of its height
constexpr double kMark = 20;
constexpr double kGap = 8;
constexpr TypeStyle kNumberType{11, 600};

}  // namespace

StepList::StepList(const QStringList& steps) : steps_(steps) {
  setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
}

void StepList::setCurrent(int step) {
  current_ = step;
  setAccessibleName(
      tr("Step %1 of %2: %3").arg(step + 1).arg(steps_.size()).arg(steps_.value(step)));
  update();
}

double StepList::lineHeight() const {
  return kLine + std::ceil(kLineText * (lookOf(*this).growth() - 1));
}

QSize StepList::sizeHint() const {
  return {0, static_cast<int>(lineHeight() * static_cast<double>(steps_.size()))};
}

void StepList::paintNumber(QPainter& painter, int step, double top) const {
  Look& look = lookOf(*this);
  const double size = std::ceil(kMark * look.growth());
  const double left = layoutDirection() == Qt::RightToLeft ? width() - size : 0;
  const QRectF mark(left, top + std::floor((lineHeight() - size) / 2), size, size);
  const bool isCurrent = step == current_;
  const QColor fill = isCurrent ? look[Token::accent] : QColor(Qt::transparent);
  paintBox(painter, mark, size / 2, fill, {look[isCurrent ? Token::accent : Token::control]});
  look.text.draw(painter, {mark, TextAnchor::centre}, QString::number(step + 1), kNumberType,
                 look[isCurrent ? Token::onAccent : Token::secondary]);
}

void StepList::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  Look& look = lookOf(*this);
  const bool isMirrored = layoutDirection() == Qt::RightToLeft;
  const double indent = std::ceil(kMark * look.growth()) + kGap;
  for (int step = 0; step < steps_.size(); ++step) {
    const double top = step * lineHeight();
    paintNumber(painter, step, top);
    const QRectF line(isMirrored ? 0 : indent, top, width() - indent, lineHeight());
    const bool isCurrent = step == current_;
    look.text.drawElided(painter, {line, isMirrored ? TextAnchor::right : TextAnchor::left},
                         steps_[step], isCurrent ? kBodyType.weighing(600) : kBodyType,
                         look[isCurrent ? Token::text : Token::secondary]);
  }
}

}  // namespace quillet
