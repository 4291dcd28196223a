// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "system/currency_units.h"

#include <unicode/ucurr.h>
#include <unicode/unistr.h>

#include <cmath>

namespace quillet {

double smallestAmount(const std::string& currency) {
  constexpr double kCent = 0.01;
  icu::UnicodeString code = icu::UnicodeString::fromUTF8(currency);
  if (code.length() != 3) return kCent;
  UErrorCode status = U_ZERO_ERROR;
  const std::int32_t digits = ucurr_getDefaultFractionDigits(code.getTerminatedBuffer(), &status);
  return U_FAILURE(status) ? kCent : std::pow(10, -digits);
}

}  // namespace quillet
