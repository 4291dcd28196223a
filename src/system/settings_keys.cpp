// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "system/settings_keys.h"

#include <algorithm>

#include "base/numbers.h"
#include "base/text.h"
#include "system/country_codes.h"

namespace quillet {

namespace {

std::optional<bool> readFlag(const Settings& settings, std::string_view key) {
  const std::string stored = lowerAscii(settings.text(key).value_or(""));
  if (stored == "true" || stored == "1") return true;
  if (stored == "false" || stored == "0") return false;
  return {};
}

}  // namespace

std::int64_t readSetting(const Settings& settings, const WholeSetting& setting) {
  const auto stored = parseWhole(settings.text(setting.key).value_or(""));
  if (!stored || *stored <= 0) return setting.fallback;
  return std::clamp(*stored, setting.lowest, setting.highest);
}

bool readSetting(const Settings& settings, const FlagSetting& setting) {
  return readFlag(settings, setting.key).value_or(setting.fallback);
}

std::optional<bool> notificationsEnabled(const Settings& settings) {
  return readFlag(settings, kNotificationsEnabled.key);
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

std::optional<std::string> unknownStorefront(const Settings& settings) {
  const auto stored = settings.text(kStorefrontCountry.key);
  if (!stored || stored->empty() || isCountryCode(lowerAscii(*stored))) return {};
  return stored;
}

}  // namespace quillet
