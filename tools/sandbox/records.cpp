// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "sandbox/records.h"

#include <cmath>

#include "sandbox/amounts.h"
#include "sandbox/pictures.h"
#include "sandbox/web_addresses.h"
#include "sandbox/words.h"

namespace quillet::sandbox {

namespace {

constexpr auto kIphones = std::to_array<std::string_view>(
    {"iPhone5s-iPhone5s", "iPhone6-iPhone6", "iPhone6Plus-iPhone6Plus", "iPhone7-iPhone7",
     "iPhone8-iPhone8", "iPhoneX-iPhoneX", "iPhoneXS-iPhoneXS", "iPhone11-iPhone11",
     "iPhone12-iPhone12", "iPhone13-iPhone13", "iPhone14-iPhone14", "iPhone15-iPhone15"});
constexpr auto kIpads = std::to_array<std::string_view>(
    {"iPadAir2-iPadAir2", "iPadAir2Cellular-iPadAir2Cellular", "iPadMini4-iPadMini4",
     "iPadMini5-iPadMini5", "iPadPro-iPadPro", "iPadProCellular-iPadProCellular", "iPad73-iPad73",
     "iPadProFourthGen-iPadProFourthGen"});

/// What the record is made from, looked up once.
struct Source {
  const SampleApp& app;
  const RecordView& view;
  const SampleVersion& version;
  bool isMac;

  [[nodiscard]] std::vector<std::string> screenshots(Picture picture, int count) const {
    return screenshotUrls(view.pictureHost, app.id, picture, count);
  }
};

/// An address as the search service writes it, with its own marks behind it.
std::string legacyUrl(std::string_view what, std::string_view name, std::int64_t id,
                      Storefront storefront, bool isMac) {
  return webUrl(what, name, id, storefront) + (isMac ? "?mt=12&uo=4" : "?uo=4");
}

/// Means are sent with five digits behind the point.
double rounded(double mean) { return std::round(mean * 1e5) / 1e5; }

std::vector<std::string> supportedDevices(const Machines& machines) {
  std::vector<std::string> devices;
  if (machines.ipad) devices.assign(kIpads.begin(), kIpads.end());
  if (machines.iphone || machines.ipad)
    devices.insert(devices.end(), {"iPodTouchSixthGen-iPodTouchSixthGen"});
  if (machines.iphone) devices.insert(devices.end(), kIphones.begin(), kIphones.end());
  return devices;
}

void writeEmptyArray(JsonWriter& json, std::string_view name) {
  json.key(name);
  json.beginArray();
  json.endArray();
}

void writeMaker(JsonWriter& json, const Source& source) {
  const Maker& maker = source.app.maker;
  json.member("artistId", maker.id);
  json.member("artistName", maker.artist);
  json.member("artistViewUrl",
              legacyUrl("developer", maker.artist, maker.id, source.view.storefront, source.isMac));
}

void writeIcons(JsonWriter& json, std::int64_t id, std::string_view host) {
  json.member("artworkUrl100", pictureUrl(host, {id, Picture::icon}, "100x100bb.jpg"));
  json.member("artworkUrl512", pictureUrl(host, {id, Picture::icon}, "512x512bb.jpg"));
  json.member("artworkUrl60", pictureUrl(host, {id, Picture::icon}, "60x60bb.jpg"));
}

/// The ratings as this record tells them; absent where it keeps silent.
std::optional<SampleRatings> toldRatings(const Source& source) {
  if (!source.isMac || source.app.macRatings == MacRatings::shown) return source.app.ratings;
  if (source.app.macRatings == MacRatings::absent) return std::nullopt;
  return SampleRatings{};
}

void writeAverages(JsonWriter& json, const std::optional<SampleRatings>& ratings) {
  if (!ratings) return;
  json.member("averageUserRating", rounded(ratings->average()));
  json.member("averageUserRatingForCurrentVersion", rounded(ratings->average()));
}

void writeFeatures(JsonWriter& json, const Machines& machines) {
  json.key("features");
  json.beginArray();
  if (machines.iphone && machines.ipad) json.value("iosUniversal");
  json.endArray();
}

void writeGenres(JsonWriter& json, const SampleApp& app) {
  std::vector<std::string> ids;
  std::vector<std::string> names;
  for (const int genre : app.genres) {
    ids.push_back(std::to_string(genre));
    names.emplace_back(genreName(genre));
  }
  json.member("genreIds", ids);
  json.member("genres", names);
}

void writeSizeAndPriceText(JsonWriter& json, const Source& source) {
  if (source.app.hidesPrice) return;
  const std::int64_t bytes = source.isMac ? source.app.macBytes : source.app.iosBytes;
  json.member("fileSizeBytes", std::to_string(bytes));
  const Storefront storefront = source.view.storefront;
  json.member("formattedPrice", formatPrice(storefront, priceIn(storefront, source.app.usCents)));
}

void writePrice(JsonWriter& json, const Source& source) {
  if (source.app.hidesPrice) return;
  const Hundredths amount = priceIn(source.view.storefront, source.app.usCents);
  json.key("price");
  writeAmount(json, amount);
}

// The keys stand in ascending order; these five write one stretch of the alphabet each.

void writeAToD(JsonWriter& json, const Source& source) {
  if (!source.isMac) {
    writeEmptyArray(json, "advisories");
    writeEmptyArray(json, "appletvScreenshotUrls");
  }
  writeMaker(json, source);
  writeIcons(json, source.app.id, source.view.pictureHost);
  writeAverages(json, toldRatings(source));
  json.member("bundleId", source.app.bundleId);
  json.member("contentAdvisoryRating", source.app.contentRating);
  json.member("currency", currencyOf(source.view.storefront));
  json.member("currentVersionReleaseDate", source.version.released);
  json.member("description", source.app.description);
}

void writeFToL(JsonWriter& json, const Source& source) {
  const SampleApp& app = source.app;
  if (!source.isMac) writeFeatures(json, app.machines);
  writeSizeAndPriceText(json, source);
  writeGenres(json, app);
  if (!source.isMac) {
    json.member("ipadScreenshotUrls",
                source.screenshots(Picture::ipadScreenshot, app.screenshots.ipad));
    json.member("isGameCenterEnabled", app.hasGameCenter);
  }
  json.member("isVppDeviceBasedLicensingEnabled", true);
  json.member("kind", source.isMac ? "mac-software" : "software");
  json.member("languageCodesISO2A", app.languages);
}

void writeMToS(JsonWriter& json, const Source& source) {
  const SampleApp& app = source.app;
  json.member("minimumOsVersion", source.isMac ? app.minimumMac : app.minimumIos);
  writePrice(json, source);
  json.member("primaryGenreId", app.genres.front());
  json.member("primaryGenreName", genreName(app.genres.front()));
  json.member("releaseDate", app.firstReleased);
  // A first version has nothing to tell.
  if (app.versions.size() > 1) json.member("releaseNotes", source.version.notes);
  const int macScreenshots = app.hidesMacScreenshots ? 0 : app.screenshots.mac;
  json.member("screenshotUrls",
              source.isMac ? source.screenshots(Picture::macScreenshot, macScreenshots)
                           : source.screenshots(Picture::iphoneScreenshot, app.screenshots.iphone));
  json.member("sellerName", app.maker.seller);
  if (!app.maker.site.empty()) json.member("sellerUrl", app.maker.site);
  if (!source.isMac) json.member("supportedDevices", supportedDevices(app.machines));
}

void writeTToZ(JsonWriter& json, const Source& source) {
  const SampleApp& app = source.app;
  json.member("trackCensoredName", app.name);
  json.member("trackContentRating", app.contentRating);
  json.member("trackId", app.id);
  json.member("trackName", app.name);
  json.member("trackViewUrl",
              legacyUrl("app", app.name, app.id, source.view.storefront, source.isMac));
  if (const auto ratings = toldRatings(source)) {
    json.member("userRatingCount", ratings->count());
    json.member("userRatingCountForCurrentVersion", ratings->count());
  }
  json.member("version", source.version.number);
  json.member("wrapperType", "software");
}

}  // namespace

void writeRecord(JsonWriter& json, const SampleApp& app, const RecordView& view) {
  const bool hasOlder = view.freshness == Freshness::stale && app.versions.size() > 1;
  const Source source{app, view, app.versions[hasOlder ? 1 : 0], view.kind == RecordKind::mac};
  json.beginObject();
  writeAToD(json, source);
  writeFToL(json, source);
  writeMToS(json, source);
  writeTToZ(json, source);
  json.endObject();
}

void writeMakerRecord(JsonWriter& json, const Maker& maker, const SampleApp& anyApp,
                      Storefront storefront) {
  json.beginObject();
  json.member("artistId", maker.id);
  json.member("artistLinkUrl", legacyUrl("developer", maker.artist, maker.id, storefront, false));
  json.member("artistName", maker.artist);
  json.member("artistType", anyApp.machines.ios() ? "Software Artist" : "Mac Software Artist");
  json.member("wrapperType", "artist");
  json.endObject();
}

}  // namespace quillet::sandbox
