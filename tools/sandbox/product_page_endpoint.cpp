// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "sandbox/product_page_endpoint.h"

#include "base/json_writer.h"
#include "base/numbers.h"
#include "base/text.h"
#include "sandbox/bundles.h"
#include "sandbox/page_answers.h"
#include "sandbox/pictures.h"

namespace quillet::sandbox {

namespace {

/// What a page is made from.
struct Page {
  const SampleStore& store;
  const SampleApp& app;
  Storefront storefront;
};

void beginShelf(JsonWriter& json, std::string_view name) {
  json.key(name);
  json.beginObject();
  json.key("items");
  json.beginArray();
}

void endShelf(JsonWriter& json) {
  json.endArray();
  json.endObject();
}

/// Of several makes: the ID is a text or a number, on the item or a level below.
void writeBundleItem(JsonWriter& json, std::int64_t id) {
  json.beginObject();
  const bool isBelow = id % 3 == 0;
  if (isBelow) {
    json.key("lockup");
    json.beginObject();
  }
  json.key("adamId");
  if (id % 2 == 0) {
    json.value(id);
  } else {
    json.value(std::to_string(id));
  }
  if (isBelow) json.endObject();
  json.endObject();
}

void writeBundleParents(JsonWriter& json, const Page& page) {
  const bool canBeIn = page.app.machines.mac && page.app.usCents > 0;
  const auto bundle = canBeIn ? bundleOf(page.store, page.app.maker.id, page.storefront)
                              : std::optional<SampleBundle>();
  if (!bundle) return;
  beginShelf(json, "bundleParents");
  writeBundleItem(json, bundle->id);
  endShelf(json);
}

void writeDescription(JsonWriter& json, const SampleApp& app) {
  beginShelf(json, "description");
  json.beginObject();
  json.key("paragraph");
  json.beginObject();
  json.member("text", app.description);
  json.endObject();
  json.endObject();
  endShelf(json);
}

void writeScreenshot(JsonWriter& json, std::int64_t id, Picture picture, int number) {
  json.beginObject();
  json.key("screenshot");
  json.beginObject();
  json.member("height", 1600);
  json.member("template", pictureUrl(id, picture, number, "{w}x{h}{c}.{f}"));
  json.member("width", 2560);
  json.endObject();
  json.endObject();
}

/// A film stands among the pictures now and then.
void writeFilm(JsonWriter& json) {
  json.beginObject();
  json.key("video");
  json.beginObject();
  json.member("videoUrl", "https://films.quillet-pictures.example/preview.m3u8");
  json.endObject();
  json.endObject();
}

void writePictures(JsonWriter& json, const std::string& shelf, std::int64_t id, Picture picture,
                   int count) {
  if (count == 0) return;
  beginShelf(json, shelf);
  if (id % 5 == 0) writeFilm(json);
  for (int number = 0; number < count; ++number) writeScreenshot(json, id, picture, number);
  endShelf(json);
}

void writeShelves(JsonWriter& json, const Page& page) {
  const SampleApp& app = page.app;
  const SampleScreenshots& counts = app.screenshots;
  json.beginObject();
  writeBundleParents(json, page);
  writeDescription(json, app);
  writePictures(json, app.id % 4 == 0 ? "product_media_mac_0" : "product_media_mac", app.id,
                Picture::macScreenshot, counts.mac);
  writePictures(json, "product_media_pad_0", app.id, Picture::ipadScreenshot, counts.ipad);
  writePictures(json, "product_media_phone_0", app.id, Picture::iphoneScreenshot, counts.iphone);
  json.endObject();
}

void writePage(JsonWriter& json, const Page& page) {
  json.beginObject();
  json.key("data");
  json.beginObject();
  json.key("shelfMapping");
  writeShelves(json, page);
  json.member("title", page.app.name);
  json.endObject();
  json.endObject();
}

/// The root is an object whose "data" is a list of pages or one page, or is the list itself.
std::string pageData(const Page& page) {
  JsonWriter json;
  const auto form = page.app.id % 3;
  const bool isObject = form != 2;
  const bool isList = form != 1;
  if (isObject) {
    json.beginObject();
    json.key("data");
  }
  if (isList) json.beginArray();
  writePage(json, page);
  if (isList) json.endArray();
  if (isObject) json.endObject();
  return json.take();
}

}  // namespace

Answer answerProductPage(const SampleStore& store, const Request& request) {
  if (!request.isFromBrowser()) return pageRefusal();
  const auto storefront = storefrontOf(std::string_view(request.captures.front()));
  const auto number = store.withId(parseWhole(request.captures.back()).value_or(0));
  if (!storefront || !number) return pageNotFound();
  const SampleApp app = store.app(*number);
  if (!app.isSoldIn(*storefront)) return pageNotFound();
  return pageWith(app.name, pageData({store, app, *storefront}));
}

}  // namespace quillet::sandbox
