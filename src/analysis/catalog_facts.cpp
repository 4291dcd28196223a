// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "analysis/catalog_facts.h"

namespace quillet {

std::optional<bool> needsRosetta(const PlatformInfo& platform) {
  if (platform.requiresRosetta) return platform.requiresRosetta;
  if (platform.runsOnAppleSilicon) return !*platform.runsOnAppleSilicon;
  return {};
}

void setRating(ITunesApp& app, const AppRating& rating) {
  if (!rating.histogram.empty()) app.ratingHistogram = rating.histogram;
  if (app.userRatingCount && !hasUnknownRating(app)) return;
  app.averageUserRating = rating.value;
  app.userRatingCount = rating.count;
}

void setPlatformFacts(ITunesApp& app, const PlatformFacts& facts) {
  if (facts.platform) app.needsRosetta = needsRosetta(*facts.platform);
  if (facts.rating) setRating(app, *facts.rating);
}

}  // namespace quillet
