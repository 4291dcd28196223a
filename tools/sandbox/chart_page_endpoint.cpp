// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "sandbox/chart_page_endpoint.h"

#include <span>

#include "base/json_writer.h"
#include "base/numbers.h"
#include "sandbox/charts.h"
#include "sandbox/page_answers.h"
#include "sandbox/words.h"

namespace quillet::sandbox {

namespace {

constexpr std::size_t kOnPage = 50;

/// Of several makes: the ID is a text or a number, on the item or a level below.
void writeItem(JsonWriter& json, std::int64_t id) {
  json.beginObject();
  const bool isBelow = id % 3 == 0;
  if (isBelow) {
    json.key("lockup");
    json.beginObject();
  }
  json.key("adamId");
  if (id % 4 == 0) {
    json.value(id);
  } else {
    json.value(std::to_string(id));
  }
  if (isBelow) json.endObject();
  json.endObject();
}

void writeRest(JsonWriter& json, std::span<const std::int64_t> ids) {
  json.key("nextPage");
  json.beginObject();
  json.key("remainingContent");
  json.beginArray();
  for (const std::int64_t id : ids) {
    json.beginObject();
    json.member("adamId", std::to_string(id));
    json.member("id", std::to_string(id));
    json.member("type", "apps");
    json.endObject();
  }
  json.endArray();
  json.endObject();
}

void writeShelf(JsonWriter& json, std::span<const std::int64_t> ids) {
  json.key("shelves");
  json.beginArray();
  json.beginObject();
  json.key("items");
  json.beginArray();
  for (const std::int64_t id : ids) writeItem(json, id);
  json.endArray();
  json.endObject();
  json.endArray();
}

void writeSegment(JsonWriter& json, const SampleStore& store, const ChartQuery& query) {
  std::vector<std::int64_t> ids;
  for (const AppNumber number : chartOf(store, query)) ids.push_back(store.sketch(number).id);
  const std::span<const std::int64_t> all = ids;
  const std::size_t onPage = std::min(all.size(), kOnPage);
  json.beginObject();
  json.member("chart", textOf(kChartWords, query.chart));
  if (all.size() > onPage) writeRest(json, all.subspan(onPage));
  writeShelf(json, all.first(onPage));
  json.endObject();
}

std::string pageData(const SampleStore& store, ChartQuery query) {
  const bool hasLists = query.genre % 3 == 0;
  JsonWriter json;
  json.beginObject();
  json.key("data");
  if (hasLists) json.beginArray();
  json.beginObject();
  json.key("data");
  json.beginObject();
  json.key("segments");
  json.beginArray();
  for (const Chart chart : {Chart::topFree, Chart::topPaid}) {
    query.chart = chart;
    writeSegment(json, store, query);
  }
  json.endArray();
  json.endObject();
  json.endObject();
  if (hasLists) json.endArray();
  json.endObject();
  return json.take();
}

}  // namespace

Answer answerChartPage(const SampleStore& store, const Request& request) {
  if (!request.isFromBrowser()) return pageRefusal();
  const auto storefront = storefrontOf(std::string_view(request.captures[0]));
  const auto shelf = valueOf(kShelfWords, request.captures[1]);
  const auto genre = static_cast<int>(parseWhole(request.captures[2]).value_or(0));
  const bool isGenre = genre == kAllGenres || !genreName(genre).empty();
  if (!storefront || !shelf || !isGenre) return pageNotFound();
  return pageWith("Charts",
                  pageData(store, {.shelf = *shelf, .storefront = *storefront, .genre = genre}));
}

}  // namespace quillet::sandbox
