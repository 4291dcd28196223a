// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "sandbox/feed_answers.h"

#include "base/text.h"
#include "sandbox/pictures.h"
#include "sandbox/web_addresses.h"
#include "sandbox/words.h"

namespace quillet::sandbox {

namespace {

constexpr std::string_view kPublisher = "Quillet Sample Store";
constexpr std::chrono::hours kOffset{7};

void writeAuthor(JsonWriter& json) {
  json.key("author");
  json.beginObject();
  writeLabel(json, "name", kPublisher);
  writeLabel(json, "uri", "https://quillet-store.example/");
  json.endObject();
}

void writeCategory(JsonWriter& json, int genre) {
  json.key("category");
  json.beginObject();
  json.key("attributes");
  json.beginObject();
  json.member("im:id", std::to_string(genre));
  json.member("label", genreName(genre));
  json.member("term", genreName(genre));
  json.endObject();
  json.endObject();
}

void writeEntryId(JsonWriter& json, const SampleApp& app, const std::string& url) {
  json.key("id");
  json.beginObject();
  json.key("attributes");
  json.beginObject();
  json.member("im:bundleId", app.bundleId);
  json.member("im:id", std::to_string(app.id));
  json.endObject();
  json.member("label", url);
  json.endObject();
}

void writeImages(JsonWriter& json, std::int64_t id) {
  json.key("im:image");
  json.beginArray();
  for (const int height : {53, 75, 100}) {
    json.beginObject();
    json.key("attributes");
    json.beginObject();
    json.member("height", std::to_string(height));
    json.endObject();
    json.member("label", pictureUrl(id, Picture::icon, 0, fmt::format("{0}x{0}bb.png", height)));
    json.endObject();
  }
  json.endArray();
}

void writeEntryPrice(JsonWriter& json, const SampleApp& app, Storefront storefront) {
  const Hundredths amount = priceIn(storefront, app.usCents);
  json.key("im:price");
  json.beginObject();
  json.key("attributes");
  json.beginObject();
  json.member("amount", fmt::format("{}.{:02}", amount / 100, amount % 100));
  json.member("currency", currencyOf(storefront));
  json.endObject();
  json.member("label", amount == 0 ? "Get" : formatPrice(storefront, amount));
  json.endObject();
}

void writeLinks(JsonWriter& json, const std::vector<std::pair<std::string, std::string>>& links) {
  json.key("link");
  json.beginArray();
  for (const auto& [rel, href] : links) {
    json.beginObject();
    json.key("attributes");
    json.beginObject();
    json.member("href", href);
    json.member("rel", rel);
    json.endObject();
    json.endObject();
  }
  json.endArray();
}

}  // namespace

std::map<std::string, std::string> feedSettings(std::string_view path) {
  std::map<std::string, std::string> settings;
  for (const std::string_view part : split(path, '/')) {
    const std::size_t equals = std::min(part.find('='), part.size());
    settings[lowerAscii(part.substr(0, equals))] = part.substr(std::min(equals + 1, part.size()));
  }
  return settings;
}

void writeLabel(JsonWriter& json, std::string_view name, std::string_view text) {
  json.key(name);
  json.beginObject();
  json.member("label", text);
  json.endObject();
}

void writeAppEntry(JsonWriter& json, const SampleApp& app, Storefront storefront) {
  json.beginObject();
  writeCategory(json, app.genres.front());
  writeEntryId(json, app, webUrl("app", app.name, app.id, storefront));
  writeLabel(json, "im:artist", app.maker.artist);
  writeImages(json, app.id);
  writeLabel(json, "im:name", app.name);
  writeEntryPrice(json, app, storefront);
  writeLabel(json, "im:releaseDate", withOffset(app.firstReleased));
  writeLabel(json, "rights", "© " + app.maker.seller);
  writeLabel(json, "summary", app.description);
  writeLabel(json, "title", app.name + " - " + app.maker.artist);
  json.endObject();
}

Feed::Feed(std::size_t entries, std::string title, Instant updated)
    : entries_(entries), title_(std::move(title)), updated_(updated) {
  json_.beginObject();
  json_.key("feed");
  json_.beginObject();
  writeAuthor(json_);
  if (entries_ > 0) json_.key("entry");
  if (entries_ > 1) json_.beginArray();
}

void Feed::addLink(std::string rel, std::string href) {
  links_.emplace_back(std::move(rel), std::move(href));
}

Answer Feed::take(std::string_view path) {
  if (entries_ > 1) json_.endArray();
  writeLabel(json_, "id", path);
  if (!links_.empty()) writeLinks(json_, links_);
  writeLabel(json_, "title", title_);
  writeLabel(json_, "updated", withOffset(updated_));
  json_.endObject();
  json_.endObject();
  return {.body = json_.take()};
}

std::string withOffset(Instant instant) {
  std::string text = formatInternetDate(instant - kOffset);
  text.pop_back();
  return fmt::format("{}-{:02}:00", text, kOffset.count());
}

Answer plainRefusal(int status, std::string text) {
  return {.status = status, .contentType = "text/plain", .body = std::move(text)};
}

}  // namespace quillet::sandbox
