// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "updates/release_list.h"

#include <algorithm>
#include <string_view>
#include <utility>

#include "base/dates.h"
#include "base/errors.h"
#include "base/json_reader.h"
#include "base/text.h"
#include "base/urls.h"
#include "base/versions.h"

namespace quillet {

namespace {

constexpr std::size_t kLongestVersion = 32;
constexpr std::size_t kLongestAddress = 2048;
/// Some pages of text.
constexpr std::size_t kLongestNotes = 20'000;
constexpr std::size_t kMostReleases = 1000;

bool isDigit(char c) { return c >= '0' && c <= '9'; }

bool isVersion(std::string_view text) {
  return !text.empty() && text.size() <= kLongestVersion && isDigit(text.front()) &&
         std::ranges::all_of(text, [](char c) { return isDigit(c) || c == '.'; });
}

bool isDay(const std::string& text) { return parseInternetDate(text + "T00:00:00Z").has_value(); }

std::string textOf(const JsonObject& object, std::string_view key) {
  return memberOf<std::string>(object, key).value_or("");
}

Release releaseOf(const JsonObject& object) {
  Release release{textOf(object, "version"), textOf(object, "date"), textOf(object, "notes"),
                  textOf(object, "page")};
  if (!isVersion(release.version)) throw DecodingError("a 'version' is no version");
  if (!release.day.empty() && !isDay(release.day)) throw DecodingError("a 'date' is no day");
  if (release.page.size() > kLongestAddress || !isSecureAddress(release.page))
    throw DecodingError("a 'page' is no https address");
  if (release.notes.size() > kLongestNotes) throw DecodingError("'notes' are too long");
  release.notes = printable(release.notes, LineFeeds::keep);
  return release;
}

}  // namespace

std::optional<Release> newestRelease(const std::string& list) {
  if (list.size() > kLargestReleaseList) throw DecodingError("it is too large");
  const JsonDocument document(list);
  JsonObject root;
  if (document.root().get(root) != simdjson::SUCCESS) throw DecodingError("it is no object");
  JsonArray releases;
  if (root["releases"].get(releases) != simdjson::SUCCESS)
    throw DecodingError("'releases' is no list");
  std::optional<Release> newest;
  std::size_t count = 0;
  for (const JsonElement element : releases) {
    JsonObject object;
    if (element.get(object) != simdjson::SUCCESS) throw DecodingError("a release is no object");
    if (++count > kMostReleases) throw DecodingError("it has too many releases");
    Release release = releaseOf(object);
    if (!newest || compareVersions(newest->version, release.version) < 0)
      newest = std::move(release);
  }
  return newest;
}

}  // namespace quillet
