// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "sandbox/catalog_attributes.h"

#include <cmath>

#include "sandbox/amounts.h"
#include "sandbox/pictures.h"
#include "sandbox/random.h"
#include "sandbox/web_addresses.h"
#include "sandbox/words.h"

namespace quillet::sandbox {

namespace {

constexpr int kGames = 6014;
constexpr int kIconSize = 1024;

/// What the attributes are made from.
struct Source {
  const SampleApp& app;
  const RecordView& view;
  const MoreAttributes& more;

  /// The catalog is not of one mould: every fourth app has what concerns a build beside its block.
  [[nodiscard]] bool keepsOutside() const { return app.id % 4 == 0; }
  /// The build that is spoken of: the asked one, where there is one.
  [[nodiscard]] RecordKind kind() const {
    if (app.machines.mac && app.machines.ios()) return view.kind;
    return app.machines.mac ? RecordKind::mac : RecordKind::ios;
  }
};

/// A yes or no that is the same at every look, yes for one app in so many.
bool drawn(const SampleApp& app, std::uint64_t what, std::size_t oneIn) {
  return Random(mixed(static_cast<std::uint64_t>(app.id), 500 + what)).oneIn(oneIn);
}

std::string macRequirements(const SampleApp& app) {
  const std::string text = fmt::format("Needs macOS {} or later", app.minimumMac);
  return text + (app.macBuild == MacBuild::siliconOnly ? " and a Mac with Apple silicon." : ".");
}

std::string iosRequirements(const SampleApp& app) {
  const std::string_view devices = app.machines.iphone && app.machines.ipad ? "iPhone and iPad"
                                   : app.machines.iphone                    ? "iPhone"
                                                                            : "iPad";
  return fmt::format("Needs iOS {} or later. Runs on {}.", app.minimumIos, devices);
}

std::string requirements(const SampleApp& app, RecordKind kind) {
  return kind == RecordKind::mac ? macRequirements(app) : iosRequirements(app);
}

void writeVersion(JsonWriter& json, const SampleVersion& version, bool hasTime, bool isPadded) {
  json.beginObject();
  json.member("releaseDate", formatDay(version.released));
  json.member("releaseNotes", version.notes);
  if (hasTime) json.member("releaseTimestamp", version.released);
  json.member("versionDisplay", (isPadded ? " " : "") + version.number);
  json.endObject();
}

void writeVersionHistory(JsonWriter& json, const Source& source) {
  if (!source.more.hasVersionHistory) return;
  const SampleApp& app = source.app;
  json.key("versionHistory");
  json.beginArray();
  const bool isStale = source.view.freshness == Freshness::stale && app.versions.size() > 1;
  for (std::size_t i = isStale ? 1 : 0; i < app.versions.size(); ++i)
    writeVersion(json, app.versions[i], !drawn(app, 1, 7), drawn(app, 100 + i, 5));
  json.endArray();
}

/// Only some apps have been written about.
void writeEditorialNotes(JsonWriter& json, const SampleApp& app) {
  const bool hasTagline = !app.editorialBadge.empty();
  if (!hasTagline && !drawn(app, 2, 3)) return;
  json.key("editorialNotes");
  json.beginObject();
  json.member(hasTagline ? "tagline" : "short", app.tagline);
  json.endObject();
}

// The keys of a block stand in ascending order; two builds have much in common.

void writeBlockOpening(JsonWriter& json, const SampleApp& app) {
  json.key("artwork");
  writeIconTemplate(json, app.id);
  json.member("bundleId", app.bundleId);
  writeEditorialNotes(json, app);
}

void writeRequirements(JsonWriter& json, const Source& source, RecordKind kind) {
  if (!source.keepsOutside()) json.member("requirementsString", requirements(source.app, kind));
}

void writeBlockEnd(JsonWriter& json, const Source& source) {
  const SampleApp& app = source.app;
  json.member("seller", app.maker.seller);
  if (!app.tagline.empty()) json.member("subtitle", app.tagline);
  json.member("supportsGameController", app.genres.front() == kGames && drawn(app, 3, 2));
  if (!source.keepsOutside()) writeVersionHistory(json, source);
}

void writeIosBlock(JsonWriter& json, const Source& source) {
  const SampleApp& app = source.app;
  json.beginObject();
  writeBlockOpening(json, app);
  json.member("hasSafariExtension", drawn(app, 4, 12));
  json.member("isAppleWatchSupported", app.machines.iphone && drawn(app, 5, 6));
  json.member("isGameCenterEnabled", app.hasGameCenter);
  json.member("isSiriSupported", drawn(app, 6, 5));
  json.member(drawn(app, 7, 4) ? "isXROSCompatible" : "isVisionOSCompatible", drawn(app, 8, 2));
  if (app.iosBuildRunsOnMac) json.member("minimumMacOSVersion", "11.0");
  json.member("minimumOSVersion", app.minimumIos);
  writeRequirements(json, source, RecordKind::ios);
  writeBlockEnd(json, source);
  json.endObject();
}

void writeMacBlock(JsonWriter& json, const Source& source) {
  const SampleApp& app = source.app;
  json.beginObject();
  writeBlockOpening(json, app);
  json.member("hasSafariExtension", drawn(app, 4, 12));
  json.member("isGameCenterEnabled", app.hasGameCenter);
  json.member("isSiriSupported", drawn(app, 6, 5));
  json.member("minimumMacOSVersion", app.minimumMac);
  writeRequirements(json, source, RecordKind::mac);
  json.member("requiresRosetta", app.macBuild == MacBuild::intelOnly);
  json.member("runsOnAppleSilicon", true);  // natively or translated
  json.member("runsOnIntel", app.macBuild != MacBuild::siliconOnly);
  writeBlockEnd(json, source);
  json.endObject();
}

void writePlatforms(JsonWriter& json, const Source& source) {
  json.key("platformAttributes");
  json.beginObject();
  if (source.app.machines.ios()) {
    json.key("ios");
    writeIosBlock(json, source);
  }
  if (source.app.machines.mac) {
    json.key("osx");
    writeMacBlock(json, source);
  }
  json.endObject();
}

void writeChartPositions(JsonWriter& json, const Source& source) {
  if (!source.more.chartPlace) return;
  const ChartPlace& place = *source.more.chartPlace;
  json.key("chartPositions");
  json.beginObject();
  json.key("appStore");
  json.beginObject();
  json.member("chart", place.chart);
  json.member("chartLink", place.url);
  json.member("genre", place.genre);
  json.member("genreName", genreName(place.genre));
  json.key("position");
  if (source.app.id % 5 == 0) {
    json.value(std::to_string(place.position));
  } else {
    json.value(place.position);
  }
  json.endObject();
  json.endObject();
}

void writeDeviceFamilies(JsonWriter& json, const Machines& machines) {
  json.key("deviceFamilies");
  json.beginArray();
  if (machines.iphone) json.value("iphone");
  if (machines.ipad) json.value("ipad");
  if (machines.ios()) json.value("ipod");
  if (machines.mac) json.value("mac");
  json.endArray();
}

void writeBadge(JsonWriter& json, const SampleApp& app) {
  if (app.editorialBadge.empty()) return;
  json.key("editorialBadgeInfo");
  json.beginObject();
  json.member("editorialBadgeType", "editorialPick");
  json.member("nameForDisplay", app.editorialBadge);
  json.endObject();
}

void writeAppOffers(JsonWriter& json, const Source& source) {
  if (source.app.hidesPrice) return;
  const Storefront storefront = source.view.storefront;
  json.key("offers");
  json.beginArray();
  json.beginObject();
  writePriceMembers(json, storefront, priceIn(storefront, source.app.usCents));
  json.member("type", source.app.usCents == 0 ? "get" : "buy");
  json.endObject();
  json.endArray();
}

/// The mean has one digit behind its point here.
void writeRating(JsonWriter& json, const SampleRatings& ratings) {
  json.key("userRating");
  json.beginObject();
  json.member("ratingCount", ratings.count());
  if (ratings.count() > 0) {
    json.member("ratingCountList",
                std::vector<std::int64_t>(ratings.histogram.begin(), ratings.histogram.end()));
  }
  json.member("value", std::round(ratings.average() * 10) / 10);
  json.endObject();
}

}  // namespace

void writeIconTemplate(JsonWriter& json, std::int64_t appId) {
  json.beginObject();
  json.member("height", kIconSize);
  json.member("url", pictureUrl(appId, Picture::icon, 0, "{w}x{h}bb.{f}"));
  json.member("width", kIconSize);
  json.endObject();
}

void writeAppAttributes(JsonWriter& json, const SampleApp& app, const RecordView& view,
                        const MoreAttributes& more) {
  const Source source{app, view, more};
  json.beginObject();
  json.member("artistName", app.maker.artist);
  writeChartPositions(json, source);
  writeDeviceFamilies(json, app.machines);
  writeBadge(json, app);
  json.member("genreDisplayName", genreName(app.genres.front()));
  json.member("hasInAppPurchases", !app.purchases.empty());
  json.member("isIOSBinaryMacOSCompatible", app.iosBuildRunsOnMac);
  json.member("name", app.name);
  writeAppOffers(json, source);
  writePlatforms(json, source);
  if (source.keepsOutside()) {
    json.member("requirementsString", requirements(app, source.kind()));
  }
  json.member("url", webUrl("app", app.name, app.id, view.storefront));
  writeRating(json, app.ratings);
  if (source.keepsOutside()) writeVersionHistory(json, source);
  json.endObject();
}

}  // namespace quillet::sandbox
