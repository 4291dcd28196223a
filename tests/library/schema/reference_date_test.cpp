// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "library/schema/reference_date.h"

#include <gtest/gtest.h>

#include <chrono>
#include <limits>

namespace quillet {
namespace {

using std::chrono::milliseconds;

TEST(ReferenceDate, ReadsStoredSeconds) {
  const double infinity = std::numeric_limits<double>::infinity();
  const struct {
    const char* situation;
    double stored;
    Instant instant;
  } rows[] = {
      {"zero is the reference, not 1970", 0, Instant(milliseconds(978307200000))},
      {"before it", -978307200, Instant(milliseconds(0))},
      {"a fraction", 0.25, Instant(milliseconds(978307200250))},
      {"finer than a millisecond", 1e-7, Instant(milliseconds(978307200000))},
      {"too late", 1e300, Instant::max()},
      {"never", infinity, Instant::max()},
      {"too early", -infinity, Instant::min()},
      {"no number", std::numeric_limits<double>::quiet_NaN(), Instant(milliseconds(978307200000))},
  };
  for (const auto& row : rows) {
    EXPECT_EQ(fromReferenceSeconds(row.stored), row.instant) << row.situation;
  }
}

TEST(ReferenceDate, KeepsInstantsToTheMillisecond) {
  // Seconds as a double fall a little short of the second one.
  for (const Instant instant : {Instant::min(), Instant(milliseconds(978307068931)),
                                Instant(milliseconds(253402300799999)), Instant::max()}) {
    EXPECT_EQ(fromReferenceSeconds(toReferenceSeconds(instant)), instant);
  }
}

}  // namespace
}  // namespace quillet
