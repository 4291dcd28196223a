// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include "base/dates.h"

namespace quillet {

inline Instant moment(int year, unsigned month, unsigned day, int hour = 9) {
  return std::chrono::sys_days{std::chrono::year{year} / month / day} + std::chrono::hours{hour};
}

}  // namespace quillet
