// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "analysis/release_ratings.h"

#include <algorithm>
#include <functional>
#include <vector>

namespace quillet {

namespace {

struct Stars {
  std::size_t count = 0;
  int sum = 0;

  void add(int stars) {
    ++count;
    sum += stars;
  }
  [[nodiscard]] bool isEnough() const { return count >= kLeastReviewsOfMean; }
  [[nodiscard]] double mean() const {
    return static_cast<double>(sum) / static_cast<double>(count);
  }
};

std::optional<ReleaseRatings> compareAt(const VersionEntry& release,
                                        std::span<const AppReview> reviews) {
  Stars since;
  Stars before;
  for (const AppReview& review : reviews) {
    if (!review.rating || !review.date) continue;
    (*review.date >= release.releaseDate ? since : before).add(*review.rating);
  }
  if (!since.isEnough() || !before.isEnough()) return {};
  return ReleaseRatings{release.version, since.mean(), before.mean()};
}

}  // namespace

std::optional<ReleaseRatings> releaseRatings(std::span<const AppReview> reviews,
                                             std::span<const VersionEntry> releases) {
  std::vector<VersionEntry> newestFirst(releases.begin(), releases.end());
  std::ranges::sort(newestFirst, std::ranges::greater(), &VersionEntry::releaseDate);
  for (const VersionEntry& release : newestFirst) {
    if (release.version.empty()) continue;
    if (auto ratings = compareAt(release, reviews)) return ratings;
  }
  return {};
}

}  // namespace quillet
