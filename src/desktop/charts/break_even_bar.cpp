// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/charts/break_even_bar.h"

#include <QPainter>
#include <cmath>

#include "desktop/look/look.h"
#include "desktop/look/pixel_grid.h"

namespace quillet {

namespace {

constexpr TypeStyle kMarkType = kCaptionType.tabular();
constexpr double kHeight = 36;
constexpr double kBarTop = 6;
constexpr double kBar = 6;
constexpr double kCorner = 2;
constexpr double kGap = 3;  // on both sides of the tick
constexpr double kTickTop = 2;
constexpr double kTick = 14;
constexpr double kMarkTop = 20;
constexpr double kMarkLine = 16;
constexpr double kMarkGap = 16;
constexpr int kMonthsPerYear = 12;

/// How much of the bar must lie behind the tick, to be seen.
constexpr double kLeastRest = 0.1;

}  // namespace

int yearsAround(int months) {
  for (const int years : {5, 10})
    if (months <= years * kMonthsPerYear * (1 - kLeastRest)) return years;
  return 12;
}

BreakEvenBar::BreakEvenBar(int months, QWidget* parent) : QWidget(parent), months_(months) {
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
}

QSize BreakEvenBar::sizeHint() const {
  return {480, static_cast<int>(std::ceil(kHeight * lookOf(*this).growth()))};
}

void BreakEvenBar::paintEvent(QPaintEvent* /*event*/) {
  Look& look = lookOf(*this);
  QPainter painter(this);
  const int years = yearsAround(months_);
  const double tick = std::round(static_cast<double>(width()) * months_ / (years * kMonthsPerYear));
  paintBox(painter, {0, kBarTop, tick - kGap, kBar}, kCorner, look[Token::emptyStar]);
  paintBox(painter, {tick + kGap, kBarTop, width() - tick - kGap, kBar}, kCorner,
           look[Token::accent]);
  paintBox(painter, {tick - 1, kTickTop, 2, kTick}, 1, look[Token::text]);

  const auto text = [&](int year) {
    return year == 0 ? tr("now") : year == 1 ? tr("1 year") : tr("%1 years").arg(year);
  };
  const double longest = look.text.width(text(years), kMarkType) + kMarkGap;
  const int step = std::max(1, static_cast<int>(std::ceil(longest * years / width())));
  for (int year = 0; year <= years; year += step) {
    const double middle = static_cast<double>(width()) * year / years;
    const double half = look.text.width(text(year), kMarkType) / 2;
    const double left = std::clamp(middle - half, 0.0, std::max(0.0, width() - 2 * half));
    look.text.draw(painter, {QRectF(left, kMarkTop, 2 * half, kMarkLine * look.growth())},
                   text(year), kMarkType, look[Token::tertiary]);
  }
}

}  // namespace quillet
