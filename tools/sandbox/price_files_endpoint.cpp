// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "sandbox/price_files_endpoint.h"

#include <algorithm>

#include "base/json_writer.h"
#include "sandbox/amounts.h"
#include "sandbox/gzip.h"
#include "sandbox/page_answers.h"
#include "sandbox/price_history.h"

namespace quillet::sandbox {

namespace {

constexpr int kSchema = 1;
constexpr std::string_view kStart = "changes-";
constexpr std::string_view kEnd = ".json.gz";

// A larger store publishes what moved among its first apps.
constexpr std::size_t kMostExamined = 50'000;

struct MovedApp {
  AppSketch app;
  std::vector<PriceChange> history;
};

std::vector<MovedApp> movedApps(const SampleStore& store) {
  std::vector<MovedApp> moved;
  const std::size_t examined = std::min<std::size_t>(store.size(), kMostExamined);
  for (AppNumber number = 0; number < examined; ++number) {
    AppSketch app = store.sketch(number);
    auto history = priceHistory(app, store.today());
    if (!history.empty()) moved.push_back({std::move(app), std::move(history)});
  }
  return moved;
}

bool isSoldIn(const MovedApp& moved, Storefront storefront) {
  return moved.app.storefronts.test(static_cast<std::size_t>(storefront));
}

void writePoints(JsonWriter& json, const std::vector<PriceChange>& history, Storefront storefront) {
  json.key("p");
  json.beginArray();
  for (const PriceChange& change : history) {
    json.beginObject();
    json.member("d", formatDay(change.day));
    json.key("v");
    writeAmount(json, priceIn(storefront, change.usCents));
    json.endObject();
  }
  json.endArray();
}

void writeMovedApp(JsonWriter& json, const MovedApp& moved, Storefront storefront) {
  const AppSketch& app = moved.app;
  json.beginObject();
  json.member("a", std::to_string(app.id));
  json.member("c", currencyOf(storefront));
  json.member("k", app.machines.ios() ? "software" : "mac-software");
  json.member("n", app.name);
  writePoints(json, moved.history, storefront);
  json.member("s", app.maker.seller);
  json.endObject();
}

std::string changesOf(const SampleStore& store, Storefront storefront) {
  JsonWriter json;
  json.beginObject();
  json.member("generatedAt", Instant(store.today()));
  json.member("schema", kSchema);
  json.key("storefront");
  json.beginObject();
  json.key("apps");
  json.beginArray();
  for (const MovedApp& moved : movedApps(store)) {
    if (isSoldIn(moved, storefront)) writeMovedApp(json, moved, storefront);
  }
  json.endArray();
  json.member("country", codeOf(storefront));
  json.endObject();
  json.endObject();
  return json.take();
}

}  // namespace

Answer answerPriceManifest(const SampleStore& store, const Request&) {
  const std::vector<MovedApp> moved = movedApps(store);
  JsonWriter json;
  json.beginObject();
  json.member("generatedAt", Instant(store.today()));
  json.member("schema", kSchema);
  json.key("storefronts");
  json.beginArray();
  for (std::size_t i = 0; i < kStorefrontCount; ++i) {
    const auto storefront = static_cast<Storefront>(i);
    json.beginObject();
    json.member("apps", std::ranges::count_if(
                            moved, [&](const MovedApp& app) { return isSoldIn(app, storefront); }));
    json.member("country", codeOf(storefront));
    json.member("file", fmt::format("{}{}{}", kStart, codeOf(storefront), kEnd));
    json.endObject();
  }
  json.endArray();
  json.endObject();
  return {.contentType = "application/json", .body = json.take()};
}

Answer answerPriceFile(const SampleStore& store, const Request& request) {
  std::string_view name = request.captures.front();
  if (!name.ends_with(kEnd)) return pageNotFound();
  name.remove_suffix(kEnd.size());
  const auto storefront = storefrontOf(name);
  if (!storefront || codeOf(*storefront) != name) return pageNotFound();
  return {.contentType = "application/gzip", .body = gzipped(changesOf(store, *storefront))};
}

}  // namespace quillet::sandbox
