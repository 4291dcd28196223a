// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "store/records/itunes_app_json.h"

#include <fmt/format.h>

#include <algorithm>

#include "base/errors.h"

namespace quillet {

namespace {

struct Field {
  std::string_view key;
  void (*read)(JsonElement, std::string_view key, ITunesApp&);
  void (*write)(JsonWriter&, std::string_view key, const ITunesApp&);
};

template <auto Member>
constexpr Field field(std::string_view key) {
  return {key,
          [](JsonElement element, std::string_view name, ITunesApp& app) {
            readElement(element, name, app.*Member);
          },
          [](JsonWriter& writer, std::string_view name, const ITunesApp& app) {
            writer.member(name, app.*Member);
          }};
}

// In the order of the keys, for lookups and for writing.
constexpr std::array kFields{
    field<&ITunesApp::artistId>("artistId"),
    field<&ITunesApp::artistName>("artistName"),
    field<&ITunesApp::artistViewUrl>("artistViewUrl"),
    field<&ITunesApp::artworkUrl100>("artworkUrl100"),
    field<&ITunesApp::artworkUrl512>("artworkUrl512"),
    field<&ITunesApp::artworkUrl60>("artworkUrl60"),
    field<&ITunesApp::averageUserRating>("averageUserRating"),
    field<&ITunesApp::bundleId>("bundleId"),
    field<&ITunesApp::contentAdvisoryRating>("contentAdvisoryRating"),
    field<&ITunesApp::currency>("currency"),
    field<&ITunesApp::currentVersionReleaseDate>("currentVersionReleaseDate"),
    field<&ITunesApp::description>("description"),
    field<&ITunesApp::deviceFamilies>("deviceFamilies"),
    field<&ITunesApp::editorialBadge>("editorialBadge"),
    field<&ITunesApp::fileSizeBytes>("fileSizeBytes"),
    field<&ITunesApp::formattedPrice>("formattedPrice"),
    field<&ITunesApp::genres>("genres"),
    field<&ITunesApp::hasInAppPurchases>("hasInAppPurchases"),
    field<&ITunesApp::hasSubscription>("hasSubscription"),
    field<&ITunesApp::hasUnlockPurchase>("hasUnlockPurchase"),
    field<&ITunesApp::ipadScreenshotUrls>("ipadScreenshotUrls"),
    field<&ITunesApp::kind>("kind"),
    field<&ITunesApp::languageCodesISO2A>("languageCodesISO2A"),
    field<&ITunesApp::minimumOsVersion>("minimumOsVersion"),
    field<&ITunesApp::needsRosetta>("needsRosetta"),
    field<&ITunesApp::price>("price"),
    field<&ITunesApp::primaryGenreName>("primaryGenreName"),
    field<&ITunesApp::ratingHistogram>("ratingHistogram"),
    field<&ITunesApp::releaseDate>("releaseDate"),
    field<&ITunesApp::releaseNotes>("releaseNotes"),
    field<&ITunesApp::screenshotUrls>("screenshotUrls"),
    field<&ITunesApp::sellerName>("sellerName"),
    field<&ITunesApp::sellerUrl>("sellerUrl"),
    field<&ITunesApp::supportedDevices>("supportedDevices"),
    field<&ITunesApp::tagline>("tagline"),
    field<&ITunesApp::trackId>("trackId"),
    field<&ITunesApp::trackName>("trackName"),
    field<&ITunesApp::trackViewUrl>("trackViewUrl"),
    field<&ITunesApp::userRatingCount>("userRatingCount"),
    field<&ITunesApp::version>("version"),
};
constexpr bool kSortedByKey = [] {
  for (std::size_t i = 1; i < kFields.size(); ++i) {
    if (kFields[i - 1].key >= kFields[i].key) return false;
  }
  return true;
}();
static_assert(kSortedByKey);

const Field* findField(std::string_view key) {
  const auto found = std::lower_bound(kFields.begin(), kFields.end(), key,
                                      [](const Field& f, std::string_view k) { return f.key < k; });
  return found != kFields.end() && found->key == key ? &*found : nullptr;
}

/// As many as the service gives at once.
constexpr std::size_t kMostResults = 200;

JsonArray resultsOf(JsonElement root) {
  JsonArray results;
  if (root["results"].get(results) != simdjson::SUCCESS) {
    throw DecodingError("it holds no list of results");
  }
  return results;
}

std::vector<ITunesApp> decodeResults(JsonElement root) {
  const JsonArray results = resultsOf(root);
  std::vector<ITunesApp> apps;
  apps.reserve(std::min(results.size(), kMostResults));
  for (const JsonElement element : results) {
    try {
      apps.push_back(decodeApp(element));
    } catch (const DecodingError&) {
      continue;  // one bad element must not cost the others
    }
  }
  return apps;
}

}  // namespace

ITunesApp decodeApp(JsonElement element) {
  JsonObject object;
  if (element.get(object) != simdjson::SUCCESS) throw DecodingError("an app is not an object");
  ITunesApp app;
  bool hasId = false;
  for (const auto [key, value] : object) {
    const Field* known = findField(key);
    if (known == nullptr) continue;
    known->read(value, key, app);
    hasId = hasId || key == "trackId";
  }
  if (!hasId || !object["trackName"].is_string()) {
    throw DecodingError("an app has no ID or no name");
  }
  return app;
}

std::vector<ITunesApp> decodeSearchResponse(const std::string& body) {
  try {
    const JsonDocument document(body);
    return decodeResults(document.root());
  } catch (const DecodingError& error) {
    throw DecodingError(fmt::format("Apple's answer could not be read: {}.", error.what()));
  }
}

void writeApp(JsonWriter& writer, const ITunesApp& app) {
  writer.beginObject();
  for (const Field& f : kFields) f.write(writer, f.key, app);
  writer.endObject();
}

}  // namespace quillet
