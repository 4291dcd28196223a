// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "sandbox/catalog_attributes.h"

#include <cmath>

#include "sandbox/amounts.h"
#include "sandbox/json_parts.h"
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
  writeObject(json, [&] {
    json.member("releaseDate", formatDay(version.released));
    json.member("releaseNotes", version.notes);
    if (hasTime) json.member("releaseTimestamp", version.released);
    json.member("versionDisplay", (isPadded ? " " : "") + version.number);
  });
}

void writeVersionHistory(JsonWriter& json, const Source& source) {
  if (!source.more.hasVersionHistory) return;
  const SampleApp& app = source.app;
  const bool isStale = source.view.freshness == Freshness::stale && app.versions.size() > 1;
  writeList(json, "versionHistory", [&] {
    for (std::size_t i = isStale ? 1 : 0; i < app.versions.size(); ++i)
      writeVersion(json, app.versions[i], !drawn(app, 1, 7), drawn(app, 100 + i, 5));
  });
}

/// Only some apps have been written about.
void writeEditorialNotes(JsonWriter& json, const SampleApp& app) {
  const bool hasTagline = !app.badge.empty();
  if (!hasTagline && !drawn(app, 2, 3)) return;
  writeObject(json, "editorialNotes",
              [&] { json.member(hasTagline ? "tagline" : "short", app.tagline); });
}

// The keys of a block stand in ascending order; two builds have much in common.

void writeBlockOpening(JsonWriter& json, const Source& source) {
  const SampleApp& app = source.app;
  json.key("artwork");
  writeIconTemplate(json, app.id, source.view.pictureHost);
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
  writeBlockOpening(json, source);
  json.member("hasSafariExtension", drawn(app, 4, 12));
  json.member("isAppleWatchSupported", app.machines.iphone && drawn(app, 5, 6));
  json.member("isGameCenterEnabled", app.hasGameCenter);
  json.member("isSiriSupported", drawn(app, 6, 5));
  json.member(drawn(app, 7, 4) ? "isXROSCompatible" : "isVisionOSCompatible", drawn(app, 8, 2));
  if (app.iosBuildRunsOnMac) json.member("minimumMacOSVersion", "11.0");
  json.member("minimumOSVersion", app.minimumIos);
  writeRequirements(json, source, RecordKind::ios);
  writeBlockEnd(json, source);
}

void writeMacBlock(JsonWriter& json, const Source& source) {
  const SampleApp& app = source.app;
  writeBlockOpening(json, source);
  json.member("hasSafariExtension", drawn(app, 4, 12));
  json.member("isGameCenterEnabled", app.hasGameCenter);
  json.member("isSiriSupported", drawn(app, 6, 5));
  json.member("minimumMacOSVersion", app.minimumMac);
  writeRequirements(json, source, RecordKind::mac);
  json.member("requiresRosetta", app.macBuild == MacBuild::intelOnly);
  json.member("runsOnAppleSilicon", true);  // natively or translated
  json.member("runsOnIntel", app.macBuild != MacBuild::siliconOnly);
  writeBlockEnd(json, source);
}

void writePlatforms(JsonWriter& json, const Source& source) {
  const Machines& machines = source.app.machines;
  writeObject(json, "platformAttributes", [&] {
    if (machines.ios()) writeObject(json, "ios", [&] { writeIosBlock(json, source); });
    if (machines.mac) writeObject(json, "osx", [&] { writeMacBlock(json, source); });
  });
}

/// A number, for every fifth app as a text.
void writePosition(JsonWriter& json, const Source& source) {
  const std::size_t position = source.more.chartPlace->position;
  json.key("position");
  if (source.app.id % 5 == 0) {
    json.value(std::to_string(position));
  } else {
    json.value(position);
  }
}

void writeChartPositions(JsonWriter& json, const Source& source) {
  if (!source.more.chartPlace) return;
  const ChartPlace& place = *source.more.chartPlace;
  writeObject(json, "chartPositions", [&] {
    writeObject(json, "appStore", [&] {
      json.member("chart", place.chart);
      json.member("chartLink", place.url);
      json.member("genre", place.genre);
      json.member("genreName", genreName(place.genre));
      writePosition(json, source);
    });
  });
}

void writeDeviceFamilies(JsonWriter& json, const Machines& machines) {
  writeList(json, "deviceFamilies", [&] {
    if (machines.iphone) json.value("iphone");
    if (machines.ipad) json.value("ipad");
    if (machines.ios()) json.value("ipod");
    if (machines.mac) json.value("mac");
  });
}

void writeBadge(JsonWriter& json, const SampleApp& app) {
  if (app.badge.empty()) return;
  writeObject(json, "editorialBadgeInfo", [&] {
    json.member("editorialBadgeType", "editorialPick");
    json.member("nameForDisplay", app.badge);
  });
}

void writeAppOffers(JsonWriter& json, const Source& source) {
  if (source.app.hidesPrice) return;
  const Storefront storefront = source.view.storefront;
  writeList(json, "offers", [&] {
    writeObject(json, [&] {
      writePriceMembers(json, storefront, priceIn(storefront, source.app.usCents));
      json.member("type", source.app.usCents == 0 ? "get" : "buy");
    });
  });
}

/// The mean has one digit behind its point here.
void writeRating(JsonWriter& json, const SampleRatings& ratings) {
  writeObject(json, "userRating", [&] {
    json.member("ratingCount", ratings.count());
    if (ratings.count() > 0) {
      json.member("ratingCountList",
                  std::vector<std::int64_t>(ratings.histogram.begin(), ratings.histogram.end()));
    }
    json.member("value", std::round(ratings.average() * 10) / 10);
  });
}

void writeMembers(JsonWriter& json, const Source& source) {
  const SampleApp& app = source.app;
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
  if (source.keepsOutside()) json.member("requirementsString", requirements(app, source.kind()));
  json.member("url", webUrl("app", app.name, app.id, source.view.storefront));
  writeRating(json, app.ratings);
  if (source.keepsOutside()) writeVersionHistory(json, source);
}

}  // namespace

void writeIconTemplate(JsonWriter& json, std::int64_t appId, std::string_view pictureHost) {
  writeObject(json, [&] {
    json.member("height", kIconSize);
    json.member("url", pictureUrl(pictureHost, {appId, Picture::icon}, "{w}x{h}bb.{f}"));
    json.member("width", kIconSize);
  });
}

void writeAppAttributes(JsonWriter& json, const SampleApp& app, const RecordView& view,
                        const MoreAttributes& more) {
  writeObject(json, [&] { writeMembers(json, {app, view, more}); });
}

}  // namespace quillet::sandbox
