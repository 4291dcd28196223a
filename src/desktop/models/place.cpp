// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/models/place.h"

#include <QJsonArray>

namespace quillet {

namespace {

using namespace Qt::StringLiterals;

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

}  // namespace

bool isSameSubject(const Place& left, const Place& right) {
  return left.section == right.section && left.what == right.what;
}

QJsonObject jsonOf(const Place& place) {
  const std::string_view section = textOf(kSectionWords, place.section);
  QJsonObject json{
      {"section"_L1, QString::fromUtf8(section.data(), static_cast<qsizetype>(section.size()))},
      {"rows"_L1, jsonOf(place.rows)},
      {"pageAlone"_L1, place.page == PageSpan::alone},
      {"first"_L1, jsonOf(place.anchor.first)},
      {"offset"_L1, place.anchor.offset}};
  if (const auto* collection = std::get_if<RowId>(&place.what))
    json["collection"_L1] = QString::number(*collection);
  if (place.chosen) json["chosen"_L1] = jsonOf(*place.chosen);
  return json;
}

Place placeOf(const QJsonObject& json) {
  Place place;
  place.section = valueOf(kSectionWords, json["section"_L1].toString().toStdString())
                      .value_or(SectionId::watchlist);
  if (const RowId collection = json["collection"_L1].toString().toLongLong(); collection != 0)
    place.what = collection;
  place.rows = viewOf(json["rows"_L1].toObject());
  if (json.contains("chosen"_L1)) place.chosen = keyOf(json["chosen"_L1].toObject());
  if (json["pageAlone"_L1].toBool()) place.page = PageSpan::alone;
  place.anchor = {keyOf(json["first"_L1].toObject()), json["offset"_L1].toInt()};
  return place;
}

}  // namespace quillet
