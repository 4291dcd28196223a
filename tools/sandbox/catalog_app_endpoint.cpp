// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "sandbox/catalog_app_endpoint.h"

#include <algorithm>

#include "base/numbers.h"
#include "base/text.h"
#include "sandbox/catalog_answers.h"
#include "sandbox/catalog_attributes.h"
#include "sandbox/catalog_resources.h"
#include "sandbox/charts.h"
#include "sandbox/review_list.h"
#include "sandbox/stories.h"
#include "sandbox/web_addresses.h"

namespace quillet::sandbox {

namespace {

constexpr std::int64_t kMostReviews = 10;

bool asksFor(const Request& request, const std::string& item, std::string_view word) {
  const std::string list = request.item(item);
  const auto words = split(list, ',');
  return std::ranges::find(words, word) != words.end();
}

Shelf shelfFor(const SampleApp& app, RecordKind kind) {
  if (app.machines.mac && (kind == RecordKind::mac || !app.machines.ios())) return Shelf::mac;
  return app.machines.iphone ? Shelf::iphone : Shelf::ipad;
}

std::optional<ChartPlace> chartPlace(const SampleStore& store, const SampleApp& app,
                                     const RecordView& view) {
  ChartQuery query;
  query.chart = app.usCents == 0 ? Chart::topFree : Chart::topPaid;
  query.shelf = shelfFor(app, view.kind);
  query.storefront = view.storefront;
  query.genre = app.genres.front();
  const auto apps = chartOf(store, query);
  const auto place = std::ranges::find(apps, *store.withId(app.id));
  if (place == apps.end()) return std::nullopt;
  return ChartPlace{
      .chart = std::string(textOf(kChartWords, query.chart)),
      .genre = query.genre,
      .position = static_cast<std::size_t>(place - apps.begin()) + 1,
      .url = chartUrl(textOf(kShelfWords, query.shelf), query.genre, view.storefront)};
}

void writeReviews(JsonWriter& json, const SampleStore& store, const SampleApp& app,
                  const Request& request) {
  const std::int64_t limit = parseWhole(request.item("limit[reviews]")).value_or(kMostReviews);
  const auto list =
      reviewsByHelpfulness(store, app, catalogView(request).storefront, 0,
                           static_cast<int>(std::clamp<std::int64_t>(limit, 1, kMostReviews)));
  json.key("reviews");
  json.beginObject();
  json.key("data");
  json.beginArray();
  for (const SampleReview& review : list.reviews) writeReview(json, review);
  json.endArray();
  if (!list.next.empty()) json.member("next", list.next);
  json.endObject();
}

void writeStories(JsonWriter& json, const SampleApp& app) {
  json.key("related-editorial-items");
  json.beginObject();
  json.key("data");
  json.beginArray();
  for (const SampleStory& story : storiesAbout(app))
    writeReference(json, std::to_string(story.id), "editorial-items");
  json.endArray();
  json.endObject();
}

void writeRelationships(JsonWriter& json, const SampleStore& store, const SampleApp& app,
                        const Request& request) {
  json.key("relationships");
  json.beginObject();
  if (asksFor(request, "include", "related-editorial-items")) writeStories(json, app);
  if (asksFor(request, "include", "reviews")) writeReviews(json, store, app, request);
  if (asksFor(request, "include", "top-in-apps") && !app.purchases.empty())
    writePurchaseList(json, "top-in-apps", app, catalogView(request).storefront);
  json.endObject();
}

}  // namespace

Answer answerCatalogApp(const SampleStore& store, const Request& request) {
  if (auto refusal = catalogRefusal(request)) return std::move(*refusal);
  const RecordView view = catalogView(request);
  const auto apps = catalogApps(store, {request.captures[1]}, view.storefront);
  if (apps.empty()) return catalogError(404, "Resource Not Found", "No app has this ID here");
  const SampleApp& app = apps.front();
  ResourceList list;
  JsonWriter& json = list.json();
  json.beginObject();
  json.key("attributes");
  writeAppAttributes(json, app, view,
                     {asksFor(request, "extend", "versionHistory"), chartPlace(store, app, view)});
  json.member("id", std::to_string(app.id));
  writeRelationships(json, store, app, request);
  json.member("type", "apps");
  json.endObject();
  return list.take();
}

}  // namespace quillet::sandbox
