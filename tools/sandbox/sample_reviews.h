// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <chrono>
#include <cstdint>
#include <optional>
#include <string>

#include "base/dates.h"
#include "sandbox/sample_app.h"
#include "sandbox/storefronts.h"

namespace quillet::sandbox {

/// What a maker answers to a review.
struct SampleReply {
  std::string body;
  Instant written;
};

struct SampleReview {
  std::int64_t id = 0;
  int stars = 5;
  std::string title;
  std::string body;
  std::string userName;
  Instant date;
  bool isEdited = false;
  std::string version;  ///< the newest on that day
  std::optional<SampleReply> reply;
};

/// How many customers of the storefront wrote about the app.
[[nodiscard]] int reviewCount(const SampleApp& app, Storefront storefront);

/// One of the reviews: 0 is the newest, reviewCount() - 1 the oldest. The same at every look on
/// the same day.
[[nodiscard]] SampleReview review(const SampleApp& app, Storefront storefront,
                                  std::chrono::sys_days today, int number);

}  // namespace quillet::sandbox
