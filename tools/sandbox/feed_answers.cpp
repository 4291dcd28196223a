// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "sandbox/feed_answers.h"

#include "base/text.h"
#include "sandbox/json_parts.h"
#include "sandbox/pictures.h"
#include "sandbox/web_addresses.h"
#include "sandbox/words.h"

namespace quillet::sandbox {

namespace {

constexpr std::string_view kPublisher = "Quillet Sample Store";
constexpr std::chrono::hours kOffset{7};

void writeAuthor(JsonWriter& json) {
  writeObject(json, "author", [&] {
    writeLabel(json, "name", kPublisher);
    writeLabel(json, "uri", "https://quillet-store.example/");
  });
}

void writeCategory(JsonWriter& json, int genre) {
  writeObject(json, "category", [&] {
    writeObject(json, "attributes", [&] {
      json.member("im:id", std::to_string(genre));
      json.member("label", genreName(genre));
      json.member("term", genreName(genre));
    });
  });
}

void writeEntryId(JsonWriter& json, const SampleApp& app, const std::string& url) {
  writeObject(json, "id", [&] {
    writeObject(json, "attributes", [&] {
      json.member("im:bundleId", app.bundleId);
      json.member("im:id", std::to_string(app.id));
    });
    json.member("label", url);
  });
}

void writeImage(JsonWriter& json, std::int64_t id, int height, std::string_view host) {
  writeObject(json, [&] {
    writeObject(json, "attributes", [&] { json.member("height", std::to_string(height)); });
    json.member("label",
                pictureUrl(host, {id, Picture::icon}, fmt::format("{0}x{0}bb.png", height)));
  });
}

void writeEntryPrice(JsonWriter& json, const SampleApp& app, Storefront storefront) {
  const Hundredths amount = priceIn(storefront, app.usCents);
  writeObject(json, "im:price", [&] {
    writeObject(json, "attributes", [&] {
      json.member("amount", fmt::format("{}.{:02}", amount / 100, amount % 100));
      json.member("currency", currencyOf(storefront));
    });
    json.member("label", amount == 0 ? "Get" : formatPrice(storefront, amount));
  });
}

void writeLink(JsonWriter& json, const std::pair<std::string, std::string>& link) {
  writeObject(json, [&] {
    writeObject(json, "attributes", [&] {
      json.member("href", link.second);
      json.member("rel", link.first);
    });
  });
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
  writeObject(json, name, [&] { json.member("label", text); });
}

void writeAppEntry(JsonWriter& json, const SampleApp& app, Storefront storefront,
                   std::string_view pictureHost) {
  writeObject(json, [&] {
    writeCategory(json, app.genres.front());
    writeEntryId(json, app, webUrl("app", app.name, app.id, storefront));
    writeLabel(json, "im:artist", app.maker.artist);
    writeList(json, "im:image", [&] {
      for (const int height : {53, 75, 100}) writeImage(json, app.id, height, pictureHost);
    });
    writeLabel(json, "im:name", app.name);
    writeEntryPrice(json, app, storefront);
    writeLabel(json, "im:releaseDate", withOffset(app.firstReleased));
    writeLabel(json, "rights", "© " + app.maker.seller);
    writeLabel(json, "summary", app.description);
    writeLabel(json, "title", app.name + " - " + app.maker.artist);
  });
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
  if (!links_.empty()) json_.list("link", links_, writeLink);
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
