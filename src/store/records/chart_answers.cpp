// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "store/records/chart_answers.h"

#include "base/errors.h"
#include "store/records/embedded_document.h"

namespace quillet {

namespace {

using Ids = std::vector<std::int64_t>;

CatalogBlock segmentOf(const EmbeddedDocument& document, ChartType chart) {
  const ChartType shown = chart == ChartType::topPaid ? ChartType::topPaid : ChartType::topFree;
  for (const CatalogBlock& content : document.contents()) {
    for (const CatalogBlock& segment : content.list("segments")) {
      if (segment.text("chart") == textOf(kChartTypeWords, shown)) return segment;
    }
  }
  return {};
}

void addIds(Ids& ids, const std::vector<CatalogBlock>& items) {
  for (const CatalogBlock& item : items) {
    // What the page has not drawn yet are resources, which name themselves by "id".
    const auto id = adamIdOf(item);
    if (const auto known = id ? id : storeIdOf(item)) ids.push_back(*known);
  }
}

Ids readPage(std::string_view html, ChartType chart) {
  const EmbeddedDocument document(html);
  const CatalogBlock segment = segmentOf(document, chart);
  Ids ids;
  for (const CatalogBlock& shelf : segment.list("shelves")) addIds(ids, shelf.list("items"));
  addIds(ids, segment.block("nextPage").list("remainingContent"));
  return ids;
}

Ids readFeed(const std::string& body) {
  const JsonDocument document(body);
  JsonObject root;
  if (document.root().get(root) != simdjson::SUCCESS) throw DecodingError("it is not an object");
  const CatalogBlock feed = CatalogBlock(root).block("feed");
  if (feed.isEmpty()) throw DecodingError("it holds no feed");
  Ids ids;
  for (const CatalogBlock& entry : feed.list("entry")) {
    const auto id = entry.block("id").block("attributes").get<std::int64_t>("im:id");
    if (id && *id > 0) ids.push_back(*id);
  }
  return ids;
}

}  // namespace

std::vector<std::int64_t> decodeChartPage(std::string_view html, ChartType chart) {
  if (!simdjson::validate_utf8(html.data(), html.size())) return {};
  try {
    return readPage(html, chart);
  } catch (const UnreadablePage&) {
    return {};  // a feed may know the chart
  }
}

std::vector<std::int64_t> decodeChartFeed(const std::string& body) {
  try {
    return readFeed(body);
  } catch (const DecodingError& error) {
    throw UnreadableAnswer("The chart's feed", error.what());
  }
}

}  // namespace quillet
