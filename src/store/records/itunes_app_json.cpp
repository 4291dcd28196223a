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
  bool (*isOfType)(JsonElement) = nullptr;  ///< set where the value is not part of a listing
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

bool isText(JsonElement element) { return element.is_string() || element.is_null(); }

bool isTexts(JsonElement element) {
  JsonArray list;
  if (element.get(list) != simdjson::SUCCESS) return element.is_null();
  return std::all_of(list.begin(), list.end(), [](JsonElement item) { return item.is_string(); });
}

/// A field that only an app's own page shows.
template <auto Member>
constexpr Field pageField(std::string_view key) {
  using Value = std::remove_reference_t<decltype(std::declval<ITunesApp>().*Member)>;
  Field ofPage = field<Member>(key);
  ofPage.isOfType = std::is_same_v<Value, std::optional<std::string>> ? isText : isTexts;
  return ofPage;
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
    pageField<&ITunesApp::description>("description"),
    field<&ITunesApp::deviceFamilies>("deviceFamilies"),
    field<&ITunesApp::editorialBadge>("editorialBadge"),
    field<&ITunesApp::fileSizeBytes>("fileSizeBytes"),
    field<&ITunesApp::formattedPrice>("formattedPrice"),
    field<&ITunesApp::genres>("genres"),
    field<&ITunesApp::hasInAppPurchases>("hasInAppPurchases"),
    field<&ITunesApp::hasSubscription>("hasSubscription"),
    field<&ITunesApp::hasUnlockPurchase>("hasUnlockPurchase"),
    pageField<&ITunesApp::ipadScreenshotUrls>("ipadScreenshotUrls"),
    field<&ITunesApp::kind>("kind"),
    pageField<&ITunesApp::languageCodesISO2A>("languageCodesISO2A"),
    field<&ITunesApp::minimumOsVersion>("minimumOsVersion"),
    field<&ITunesApp::needsRosetta>("needsRosetta"),
    field<&ITunesApp::price>("price"),
    field<&ITunesApp::primaryGenreName>("primaryGenreName"),
    field<&ITunesApp::ratingHistogram>("ratingHistogram"),
    field<&ITunesApp::releaseDate>("releaseDate"),
    pageField<&ITunesApp::releaseNotes>("releaseNotes"),
    pageField<&ITunesApp::screenshotUrls>("screenshotUrls"),
    field<&ITunesApp::sellerName>("sellerName"),
    field<&ITunesApp::sellerUrl>("sellerUrl"),
    pageField<&ITunesApp::supportedDevices>("supportedDevices"),
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

/// An artist, or whatever else a look-up may find.
bool isNoApp(JsonElement element) {
  std::string_view kind;
  return element["wrapperType"].get(kind) == simdjson::SUCCESS && kind != "software";
}

std::int64_t idOf(JsonElement element) {
  std::int64_t id = 0;
  return element["trackId"].get(id) == simdjson::SUCCESS ? id : 0;
}

StoreAnswer decodeResults(JsonElement root, AppDetail detail) {
  const JsonArray results = resultsOf(root);
  StoreAnswer answer;
  answer.apps.reserve(std::min(results.size(), kMostResults));
  for (const JsonElement element : results) {
    try {
      answer.apps.push_back(decodeApp(element, detail));
    } catch (const DecodingError&) {  // one bad element must not cost the others
      if (!isNoApp(element)) answer.unread.push_back(idOf(element));
    }
  }
  if (answer.apps.empty() && !answer.unread.empty())
    throw DecodingError("none of its results can be read");
  return answer;
}

}  // namespace

ITunesApp decodeApp(JsonElement element, AppDetail detail) {
  JsonObject object;
  if (element.get(object) != simdjson::SUCCESS) throw DecodingError("an app is not an object");
  ITunesApp app;
  bool hasId = false;
  for (const auto [key, value] : object) {
    const Field* known = findField(key);
    if (known == nullptr) continue;
    if (detail == AppDetail::page || known->isOfType == nullptr) {
      known->read(value, key, app);
    } else if (!known->isOfType(value)) {
      throw DecodingError(fmt::format("'{}' is of another type", key));
    }
    hasId = hasId || key == "trackId";
  }
  if (!hasId || !object["trackName"].is_string()) {
    throw DecodingError("an app has no ID or no name");
  }
  return app;
}

StoreAnswer decodeStoreAnswer(const std::string& body, AppDetail detail) {
  try {
    const JsonDocument document(body);
    return decodeResults(document.root(), detail);
  } catch (const DecodingError& error) {
    throw UnreadableAnswer("Apple's answer", error.what());
  }
}

std::vector<ITunesApp> decodeSearchResponse(const std::string& body, AppDetail detail) {
  return decodeStoreAnswer(body, detail).apps;
}

void writeApp(JsonWriter& writer, const ITunesApp& app) {
  writer.beginObject();
  for (const Field& f : kFields) f.write(writer, f.key, app);
  writer.endObject();
}

}  // namespace quillet
