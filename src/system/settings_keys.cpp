// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "system/settings_keys.h"

#include <algorithm>

#include "base/numbers.h"
#include "base/text.h"

namespace quillet {

std::int64_t readSetting(const Settings& settings, const WholeSetting& setting) {
  const auto stored = parseWhole(settings.text(setting.key).value_or(""));
  if (!stored || *stored <= 0) return setting.fallback;
  return std::clamp(*stored, setting.lowest, setting.highest);
}

bool readSetting(const Settings& settings, const FlagSetting& setting) {
  const std::string stored = lowerAscii(settings.text(setting.key).value_or(""));
  if (stored == "true" || stored == "1") return true;
  if (stored == "false" || stored == "0") return false;
  return setting.fallback;
}

bool isTwoLetters(std::string_view text) {
  const auto isLetter = [](char c) { return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z'); };
  return text.size() == 2 && std::all_of(text.begin(), text.end(), isLetter);
}

std::optional<std::string> storefrontCountry(const Settings& settings) {
  const auto stored = settings.text(kStorefrontCountry.key);
  if (!stored || !isTwoLetters(*stored)) return {};
  return lowerAscii(*stored);
}

}  // namespace quillet
