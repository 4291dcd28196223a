// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "analysis/system_upgrade.h"

#include "base/versions.h"

namespace quillet {

namespace {

// Apple announced macOS 27 as the last that translates any Intel app.
constexpr std::string_view kFirstWithoutRosetta = "28";

}  // namespace

UpgradeOutlook outlookOn(std::string_view system, const SystemNeeds& needs) {
  if (needs.is32Bit) return UpgradeOutlook::stopped;
  const bool hasRosetta = compareVersions(system, kFirstWithoutRosetta) < 0;
  if (!hasRosetta && needs.needsRosetta == true) return UpgradeOutlook::stops;
  if (!needs.minimumSystem) return UpgradeOutlook::unknown;
  if (compareVersions(*needs.minimumSystem, system) > 0) return UpgradeOutlook::needsNewer;
  return hasRosetta || needs.needsRosetta ? UpgradeOutlook::runs : UpgradeOutlook::unknown;
}

}  // namespace quillet
