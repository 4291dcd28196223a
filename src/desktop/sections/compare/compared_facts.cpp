// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/sections/compare/compared_facts.h"

#include "analysis/app_build.h"
#include "desktop/models/row_parts.h"
#include "library/store_rows.h"

namespace quillet {

std::optional<Platform> comparedBuild(const ComparedFacts& facts) {
  if (!facts.told) return {};
  std::optional<Platform> meant = facts.key.platform;
  if (!meant && facts.library) meant = facts.library->listedAs;
  const bool isOther = meant && !describesBuild(facts.told->app, *meant);
  return isOther ? *meant : ownPlatform(facts.told->app);
}

std::optional<DescribedApp> describedOf(const ComparedFacts& facts) {
  if (facts.told) return describeApp(facts.told->app, *comparedBuild(facts), facts.catalog);
  if (!facts.library || !facts.library->cached) return {};
  return describeApp(recordOf(*facts.library->cached));
}

QString comparedName(const ComparedFacts& facts) {
  if (facts.told) return nameLine(facts.told->app.trackName);
  if (facts.library && !facts.library->name.empty()) return nameLine(facts.library->name);
  return QString::number(facts.key.app.trackId);
}

}  // namespace quillet
