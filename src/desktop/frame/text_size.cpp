// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/frame/text_size.h"

#include <QApplication>
#include <algorithm>
#include <array>

#include "base/errors.h"
#include "desktop/look/quillet_style.h"
#include "system/settings_keys.h"

namespace quillet {

namespace {

constexpr int kNormal = static_cast<int>(kTextPercent.fallback);
constexpr std::array kPercents{85, kNormal, 115, 130, 150, 175, 200};
static_assert(kPercents.front() == kTextPercent.lowest && kPercents.back() == kTextPercent.highest);

}  // namespace

TextSize::TextSize(LiveSettings& settings)
    : settings_(settings), percent_(static_cast<int>(readSetting(settings, kTextPercent))) {
  connect(&settings, &LiveSettings::changed, this, [this](const std::set<std::string>& keys) {
    if (keys.contains(std::string(kTextPercent.key)))
      show(static_cast<int>(readSetting(settings_, kTextPercent)));
  });
}

bool TextSize::canGrow() const { return percent_ < kPercents.back(); }
bool TextSize::canShrink() const { return percent_ > kPercents.front(); }
bool TextSize::isNormal() const { return percent_ == kNormal; }

void TextSize::grow() {
  if (canGrow()) set(*std::ranges::upper_bound(kPercents, percent_));
}

void TextSize::shrink() {
  if (canShrink()) set(*std::prev(std::ranges::lower_bound(kPercents, percent_)));
}

void TextSize::reset() { set(kNormal); }

void TextSize::set(int percent) {
  try {
    settings_.write({{std::string(kTextPercent.key), std::to_string(percent)}});
  } catch (const BadSetting& error) {
    // It holds until the end of this run.
    qInfo("%s", error.what());
    show(percent);
  }
}

void TextSize::show(int percent) {
  if (percent == percent_) return;
  percent_ = percent;
  if (auto* style = qobject_cast<QuilletStyle*>(QApplication::style()))
    style->setTextScale(percent / 100.0);
  Q_EMIT changed();
}

}  // namespace quillet
