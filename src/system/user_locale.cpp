// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

// Free of ICU: the executable finds its default storefront without loading it.

#include "system/user_locale.h"

#include <algorithm>
#include <optional>
#include <string_view>

#include "base/text.h"
#include "system/settings_keys.h"

namespace quillet {

namespace {

/// A POSIX locale name taken apart: language_REGION.encoding@modifier.
struct PosixLocale {
  std::string_view language;
  std::string_view region;
  std::string_view encoding;
  std::string_view modifier;
};

/// Cuts `text` at the separator and returns what follows it.
std::string_view cutAt(std::string_view& text, char separator) {
  const std::size_t at = text.find(separator);
  if (at == std::string_view::npos) return {};
  const std::string_view tail = text.substr(at + 1);
  text = text.substr(0, at);
  return tail;
}

PosixLocale takeApart(std::string_view name) {
  PosixLocale locale;
  locale.modifier = cutAt(name, '@');
  locale.encoding = cutAt(name, '.');
  locale.region = cutAt(name, '_');
  locale.language = name;
  return locale;
}

std::string localeVariable(const Environment& environment, std::string_view category) {
  for (const std::string_view name :
       {std::string_view("LC_ALL"), category, std::string_view("LANG")}) {
    if (auto value = environment.get(name)) return *value;
  }
  return "C";
}

bool isLanguage(std::string_view text) {
  return (text.size() == 2 || text.size() == 3) &&
         std::all_of(text.begin(), text.end(), [](char c) { return c >= 'a' && c <= 'z'; });
}

/// Two letters, or the three digits of a larger area ("es_419").
bool isRegion(std::string_view text) {
  return isTwoLetters(text) ||
         (text.size() == 3 && text.find_first_not_of("0123456789") == std::string_view::npos);
}

std::string_view scriptOf(std::string_view modifier) {
  if (modifier == "latin") return "_Latn";
  if (modifier == "cyrillic") return "_Cyrl";
  return {};
}

std::string icuName(std::string_view posixName) {
  const PosixLocale locale = takeApart(posixName);
  if (!isLanguage(locale.language)) return "en_US";
  std::string name(locale.language);
  name += scriptOf(locale.modifier);
  if (isRegion(locale.region)) name.append("_").append(locale.region);
  return name;
}

}  // namespace

UserLocale findUserLocale(const Environment& environment) {
  const auto find = [&](std::string_view category) {
    return icuName(localeVariable(environment, category));
  };
  return {.monetary = find("LC_MONETARY"),
          .numeric = find("LC_NUMERIC"),
          .collation = find("LC_COLLATE"),
          .dates = find("LC_TIME")};
}

bool usesUtf8(const Environment& environment) {
  const std::string name = localeVariable(environment, "LC_CTYPE");
  const std::string encoding = lowerAscii(takeApart(name).encoding);
  return encoding == "utf-8" || encoding == "utf8";
}

std::string defaultStorefront(const Settings& settings, const Environment& environment) {
  if (auto chosen = storefrontCountry(settings)) return *chosen;
  const std::string name = localeVariable(environment, "LC_MONETARY");
  const std::string_view region = takeApart(name).region;
  return isTwoLetters(region) ? lowerAscii(region) : "us";
}

}  // namespace quillet
