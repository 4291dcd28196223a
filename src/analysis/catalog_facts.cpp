// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "analysis/catalog_facts.h"

namespace quillet {

std::optional<bool> needsRosetta(const PlatformInfo& platform) {
  if (platform.requiresRosetta) return platform.requiresRosetta;
  if (platform.runsOnAppleSilicon) return !*platform.runsOnAppleSilicon;
  return {};
}

void setPlatformFacts(ITunesApp& app, const PlatformFacts& facts) {
  if (facts.platform) app.needsRosetta = needsRosetta(*facts.platform);
  if (facts.rating && hasUnknownRating(app)) {
    app.averageUserRating = facts.rating->value;
    app.userRatingCount = facts.rating->count;
  }
}

}  // namespace quillet
