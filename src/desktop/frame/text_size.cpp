// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/frame/text_size.h"

#include <QApplication>
#include <algorithm>
#include <array>

#include "desktop/look/quillet_style.h"

namespace quillet {

namespace {

constexpr int kNormal = 100;
constexpr std::array kPercents{85, kNormal, 115, 130, 150, 175, 200};

}  // namespace

TextSize::TextSize(WindowMemory& memory) : memory_(memory) {
  const int percent = memory.textPercent();
  if (percent != kNormal) set(std::clamp(percent, kPercents.front(), kPercents.back()));
}

bool TextSize::canGrow() const { return memory_.textPercent() < kPercents.back(); }
bool TextSize::canShrink() const { return memory_.textPercent() > kPercents.front(); }
bool TextSize::isNormal() const { return memory_.textPercent() == kNormal; }

void TextSize::grow() {
  if (canGrow()) set(*std::ranges::upper_bound(kPercents, memory_.textPercent()));
}

void TextSize::shrink() {
  if (canShrink()) set(*std::prev(std::ranges::lower_bound(kPercents, memory_.textPercent())));
}

void TextSize::reset() { set(kNormal); }

void TextSize::set(int percent) {
  memory_.setTextPercent(percent);
  if (auto* style = qobject_cast<QuilletStyle*>(QApplication::style()))
    style->setTextScale(percent / 100.0);
}

}  // namespace quillet
