// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>
#include <optional>

#include "base/dates.h"
#include "store/records/review_feed_json.h"
#include "system/time_zone.h"

namespace quillet {

/// A review as it is shown: plain texts, empty where the store did not say.
struct ReviewText {
  QString title;
  QString date;
  std::optional<int> stars;  ///< 1 to 5
  QString byline;            ///< "Wilhelmina P. · 1.14 · edited"
  QString body;
  QString replyHead;  ///< "Developer · 3 Oct"; empty without a reply
  QString reply;

  friend bool operator==(const ReviewText&, const ReviewText&) = default;
};

[[nodiscard]] ReviewText reviewTextOf(const VersionedReview& review, Instant now,
                                      const UtcOffsetAt& zone);

/// What a screen reader says of it.
[[nodiscard]] QString sentenceOf(const ReviewText& review);

/// As it is copied, a part on a line.
[[nodiscard]] QString copyOf(const ReviewText& review);

}  // namespace quillet
