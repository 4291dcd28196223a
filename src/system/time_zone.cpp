// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "system/time_zone.h"

#include <ctime>

namespace quillet {

UtcOffsetAt localTimeZone() {
  // localtime_r need not look at TZ by itself.
  tzset();
  return [](Instant instant) {
    const auto whole = std::chrono::floor<std::chrono::seconds>(instant);
    const auto time = static_cast<std::time_t>(whole.time_since_epoch().count());
    std::tm local{};
    // It fails only for years beyond the range of int.
    if (localtime_r(&time, &local) == nullptr) return std::chrono::seconds{0};
    return std::chrono::seconds{local.tm_gmtoff};
  };
}

}  // namespace quillet
