// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "system/country_names.h"

#include <unicode/locid.h>
#include <unicode/ucurr.h>
#include <unicode/unistr.h>

#include <array>

namespace quillet {

namespace {

icu::Locale countryOf(std::string_view code) { return {"", std::string(code).c_str()}; }

std::string utf8(const icu::UnicodeString& text) {
  std::string bytes;
  text.toUTF8String(bytes);
  return bytes;
}

/// The code itself where there is none.
std::string longName(const char16_t* currency, const std::string& language) {
  UErrorCode status = U_ZERO_ERROR;
  std::int32_t length = 0;
  const char16_t* name =
      ucurr_getName(currency, language.c_str(), UCURR_LONG_NAME, nullptr, &length, &status);
  return U_FAILURE(status) ? std::string() : utf8(icu::UnicodeString(name, length));
}

}  // namespace

std::string countryName(std::string_view code, const std::string& language) {
  icu::UnicodeString name;
  countryOf(code).getDisplayCountry(icu::Locale(language.c_str()), name);
  return utf8(name);
}

std::string currencyName(std::string_view code, const std::string& language) {
  UErrorCode status = U_ZERO_ERROR;
  std::array<char16_t, 4> currency{};
  const std::string locale = std::string("und_").append(code);
  ucurr_forLocale(locale.c_str(), currency.data(), static_cast<std::int32_t>(currency.size()),
                  &status);
  if (U_FAILURE(status)) return {};
  return U_FAILURE(status) ? std::string() : longName(currency.data(), language);
}

std::string moneyName(const std::string& currency, const std::string& language) {
  const icu::UnicodeString code = icu::UnicodeString::fromUTF8(currency);
  return code.length() == 3 ? longName(icu::UnicodeString(code).getTerminatedBuffer(), language)
                            : currency;
}

}  // namespace quillet
