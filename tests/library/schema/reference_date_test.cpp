// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "library/schema/reference_date.h"

#include <gtest/gtest.h>

#include <chrono>
#include <limits>

namespace quillet {
namespace {

TEST(ReferenceDate, ReadsStoredSeconds) {
  const Instant reference = std::chrono::sys_days{std::chrono::year{2001} / 1 / 1};
  const double infinity = std::numeric_limits<double>::infinity();
  const struct {
    const char* situation;
    double stored;
    Instant instant;
  } rows[] = {
      {"before the reference", -978307200, Instant{}},
      {"a fraction", 0.25, reference + std::chrono::milliseconds(250)},
      {"finer than a millisecond", 1e-7, reference},
      {"too late", 1e300, Instant::max()},
      {"too early", -infinity, Instant::min()},
      {"no number", std::numeric_limits<double>::quiet_NaN(), reference},
  };
  for (const auto& row : rows) {
    EXPECT_EQ(fromReferenceSeconds(row.stored), row.instant) << row.situation;
  }
}

}  // namespace
}  // namespace quillet
