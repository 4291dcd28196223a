// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/models/place.h"

#include <QJsonArray>
#include <algorithm>

#include "analysis/filters_json.h"
#include "system/settings_keys.h"

namespace quillet {

namespace {

using namespace Qt::StringLiterals;

QString fromView(std::string_view text) {
  return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

QJsonObject jsonOf(const RowKey& key) {
  return {{"app"_L1, QString::number(key.app.trackId)},
          {"country"_L1, QString::fromStdString(key.app.country)},
          {"row"_L1, QString::number(key.row)}};
}

RowKey keyOf(const QJsonObject& json) {
  return {{json["app"_L1].toString().toLongLong(), json["country"_L1].toString().toStdString()},
          json["row"_L1].toString().toLongLong()};
}

QJsonObject jsonOf(const RowView& view) {
  QJsonArray chips;
  for (const std::string& chip : view.chips) chips.append(QString::fromStdString(chip));
  return {
      {"text"_L1, view.text}, {"chips"_L1, chips}, {"sort"_L1, QString::fromStdString(view.sort)}};
}

RowView viewOf(const QJsonObject& json) {
  RowView view{json["text"_L1].toString(), {}, json["sort"_L1].toString().toStdString()};
  for (const QJsonValue& chip : json["chips"_L1].toArray())
    view.chips.push_back(chip.toString().toStdString());
  return view;
}

QJsonObject jsonOf(const StoreQuery& query) {
  const SearchRequest& request = query.request;
  QJsonObject json{{"query"_L1, QString::fromStdString(request.query)},
                   {"platform"_L1, fromView(textOf(kPlatformWords, request.platform))},
                   {"filters"_L1, QString::fromStdString(encodeFilters(request.filters))},
                   {"sort"_L1, fromView(textOf(kSortOrderTexts, request.sort))}};
  if (request.country) json["country"_L1] = QString::fromStdString(*request.country);
  if (query.developer) {
    json["developer"_L1] = QString::number(query.developer->id);
    json["developerName"_L1] = QString::fromStdString(query.developer->name);
  }
  if (query.chart) {
    json["chart"_L1] = fromView(textOf(kChartTypeWords, query.chart->type));
    if (query.chart->genreId) json["genre"_L1] = *query.chart->genreId;
  }
  return json;
}

StoreQuery queryOf(const QJsonObject& json) {
  StoreQuery query;
  SearchRequest& request = query.request;
  request.query = json["query"_L1].toString().toStdString();
  request.platform =
      valueOf(kPlatformWords, json["platform"_L1].toString().toStdString()).value_or(Platform::mac);
  request.filters =
      decodeFilters(json["filters"_L1].toString().toStdString()).value_or(AppFilters());
  request.sort = valueOf(kSortOrderTexts, json["sort"_L1].toString().toStdString())
                     .value_or(SortOrder::relevance);
  const std::string country = json["country"_L1].toString().toStdString();
  if (isTwoLetters(country)) request.country = country;
  if (const auto id = json["developer"_L1].toString().toLongLong(); id != 0)
    query.developer = Developer{id, json["developerName"_L1].toString().toStdString()};
  if (const auto chart = valueOf(kChartTypeWords, json["chart"_L1].toString().toStdString())) {
    query.chart = ShownChart{*chart, {}};
    if (const int genre = json["genre"_L1].toInt(); genre != 0) query.chart->genreId = genre;
  }
  return query;
}

// A platform that is absent means any.
QJsonObject jsonOf(const DealPlace& deals) {
  QJsonObject json{{"drop"_L1, deals.minimumDrop}};
  if (deals.country) json["country"_L1] = QString::fromStdString(*deals.country);
  if (deals.platform) json["platform"_L1] = fromView(textOf(kPlatformWords, *deals.platform));
  return json;
}

DealPlace dealsOf(const QJsonObject& json) {
  DealPlace deals;
  const std::string country = json["country"_L1].toString().toStdString();
  if (isTwoLetters(country)) deals.country = country;
  deals.platform = valueOf(kPlatformWords, json["platform"_L1].toString().toStdString());
  deals.minimumDrop = std::clamp(json["drop"_L1].toDouble(), 0.0, 100.0);
  return deals;
}

}  // namespace

bool isSameQuestion(const StoreQuery& left, const StoreQuery& right) {
  return left.request.query == right.request.query &&
         left.request.platform == right.request.platform &&
         left.request.country == right.request.country && left.developer == right.developer &&
         left.chart == right.chart;
}

bool isSameSubject(const Place& left, const Place& right) {
  if (left.section != right.section) return false;
  const auto* before = std::get_if<StoreQuery>(&left.what);
  const auto* after = std::get_if<StoreQuery>(&right.what);
  if (before != nullptr && after != nullptr) return isSameQuestion(*before, *after);
  return left.what == right.what;
}

QJsonObject jsonOf(const Place& place) {
  QJsonObject json{{"section"_L1, fromView(textOf(kSectionWords, place.section))},
                   {"rows"_L1, jsonOf(place.rows)},
                   {"pageAlone"_L1, place.page == PageSpan::alone},
                   {"first"_L1, jsonOf(place.anchor.first)},
                   {"offset"_L1, place.anchor.offset}};
  if (const auto* collection = std::get_if<RowId>(&place.what))
    json["collection"_L1] = QString::number(*collection);
  if (const auto* query = std::get_if<StoreQuery>(&place.what)) json["store"_L1] = jsonOf(*query);
  if (const auto* deals = std::get_if<DealPlace>(&place.what)) json["deals"_L1] = jsonOf(*deals);
  if (place.chosen) json["chosen"_L1] = jsonOf(*place.chosen);
  return json;
}

Place placeOf(const QJsonObject& json) {
  Place place;
  place.section = valueOf(kSectionWords, json["section"_L1].toString().toStdString())
                      .value_or(SectionId::watchlist);
  if (const RowId collection = json["collection"_L1].toString().toLongLong(); collection != 0)
    place.what = collection;
  if (json.contains("store"_L1)) place.what = queryOf(json["store"_L1].toObject());
  if (json.contains("deals"_L1)) place.what = dealsOf(json["deals"_L1].toObject());
  place.rows = viewOf(json["rows"_L1].toObject());
  if (json.contains("chosen"_L1)) place.chosen = keyOf(json["chosen"_L1].toObject());
  if (json["pageAlone"_L1].toBool()) place.page = PageSpan::alone;
  place.anchor = {keyOf(json["first"_L1].toObject()), json["offset"_L1].toInt()};
  return place;
}

}  // namespace quillet
