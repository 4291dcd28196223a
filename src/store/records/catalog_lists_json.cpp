// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "store/records/catalog_lists_json.h"

namespace quillet {

namespace {

constexpr std::size_t kStarValues = 5;

struct Flag {
  std::string_view key;
  std::optional<bool> PlatformInfo::* member;
};

// Of two names of one flag, the newer stands first.
constexpr Flag kFlags[] = {
    {"runsOnAppleSilicon", &PlatformInfo::runsOnAppleSilicon},
    {"runsOnIntel", &PlatformInfo::runsOnIntel},
    {"requiresRosetta", &PlatformInfo::requiresRosetta},
    {"isGameCenterEnabled", &PlatformInfo::isGameCenterEnabled},
    {"supportsGameController", &PlatformInfo::supportsGameController},
    {"hasSafariExtension", &PlatformInfo::hasSafariExtension},
    {"isSiriSupported", &PlatformInfo::isSiriSupported},
    {"isAppleWatchSupported", &PlatformInfo::isAppleWatchSupported},
    {"isVisionOSCompatible", &PlatformInfo::isXROSCompatible},
    {"isXROSCompatible", &PlatformInfo::isXROSCompatible},
};

}  // namespace

std::map<std::int64_t, bool> decodeMacCompatibilityFlags(const std::string& body) {
  const CatalogAnswer answer(body);
  std::map<std::int64_t, bool> flags;
  for (const CatalogBlock& app : answer.resources()) {
    const auto id = storeIdOf(app);
    // The flag is about the iPhone and iPad build, so their block may hold it.
    const auto flag = attributesFor(app, Platform::ipad).get<bool>("isIOSBinaryMacOSCompatible");
    if (id && flag) flags[*id] = *flag;
  }
  return flags;
}

std::map<std::int64_t, PlatformFacts> decodePlatformFacts(const std::string& body) {
  const CatalogAnswer answer(body);
  std::map<std::int64_t, PlatformFacts> facts;
  for (const CatalogBlock& app : answer.resources()) {
    const auto id = storeIdOf(app);
    if (!id) continue;
    const CatalogBlock attributes = attributesFor(app, Platform::mac);
    facts[*id] = {readPlatformInfo(attributes), readRating(attributes)};
  }
  return facts;
}

std::optional<PlatformInfo> readPlatformInfo(const CatalogBlock& attributes) {
  PlatformInfo info;
  info.requirements = attributes.get<std::string>("requirementsString");
  info.deviceFamilies =
      attributes.get<std::vector<std::string>>("deviceFamilies").value_or(info.deviceFamilies);
  info.minimumMacOSVersion = attributes.get<std::string>("minimumMacOSVersion");
  for (const Flag& flag : kFlags) {
    auto& value = info.*flag.member;
    if (!value) value = attributes.get<bool>(flag.key);
  }
  if (info == PlatformInfo{}) return {};
  return info;
}

std::optional<AppRating> readRating(const CatalogBlock& attributes) {
  const CatalogBlock block = attributes.block("userRating");
  AppRating rating;
  rating.value = block.get<double>("value");
  rating.count = block.get<std::int64_t>("ratingCount");
  auto histogram = block.get<std::vector<std::int64_t>>("ratingCountList");
  if (histogram && histogram->size() == kStarValues) rating.histogram = std::move(*histogram);
  if (rating == AppRating{}) return {};
  return rating;
}

}  // namespace quillet
