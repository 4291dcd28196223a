// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "analysis/app_build.h"

#include <algorithm>

namespace quillet {

Platform ownPlatform(const ITunesApp& app) {
  if (isMacApp(app)) return Platform::mac;
  const auto holds = [](const auto& addresses) { return addresses && !addresses->empty(); };
  return !holds(app.screenshotUrls) && holds(app.ipadScreenshotUrls) ? Platform::ipad
                                                                     : Platform::iphone;
}

bool describesBuild(const ITunesApp& app, Platform platform) {
  return isMacApp(app) == (platform == Platform::mac);
}

bool knowsBuild(const AppEnrichment& enrichment, Platform platform) {
  if (!enrichment.platform || enrichment.platform->deviceFamilies.empty()) {
    return enrichment.platform || !enrichment.versions.empty();
  }
  const std::vector<std::string>& families = enrichment.platform->deviceFamilies;
  return std::any_of(families.begin(), families.end(), [platform](std::string_view family) {
    return platform == Platform::mac ? family == "mac" : family == "iphone" || family == "ipad";
  });
}

std::optional<std::string> architectureText(const PlatformInfo& build) {
  if (build.requiresRosetta == true) return "Intel (needs Rosetta)";
  if (build.runsOnAppleSilicon == true) {
    return build.runsOnIntel == true ? "Apple silicon and Intel" : "Apple silicon";
  }
  if (build.runsOnIntel == true) return "Intel";
  return {};
}

}  // namespace quillet
