// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <optional>
#include <string>
#include <vector>

#include "base/dates.h"

namespace quillet {

/// A customer's review. A text is empty where the store did not say.
struct AppReview {
  std::string title;
  std::string body;
  std::optional<int> rating;  ///< 1 to 5 stars
  std::string userName;
  std::optional<Instant> date;
  bool isEdited = false;
  std::optional<std::string> developerResponse;
  std::optional<Instant> developerResponseDate;

  friend bool operator==(const AppReview&, const AppReview&) = default;
};

/// A part of an app's reviews, in the store's order.
struct ReviewsPage {
  std::vector<AppReview> reviews;
  bool hasMore = false;  ///< whether the store has a page behind this one

  friend bool operator==(const ReviewsPage&, const ReviewsPage&) = default;
};

}  // namespace quillet
