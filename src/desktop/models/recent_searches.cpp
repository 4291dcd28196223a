// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/models/recent_searches.h"

#include <QJsonObject>

#include "base/text.h"
#include "system/country_codes.h"

namespace quillet {

namespace {

using namespace Qt::StringLiterals;

constexpr qsizetype kKept = 20;

QJsonObject jsonOf(const SearchRequest& request) {
  const std::string_view platform = textOf(kPlatformWords, request.platform);
  QJsonObject json{
      {"query"_L1, QString::fromStdString(std::string(trimmed(request.query)))},
      {"platform"_L1, QLatin1StringView(platform.data(), static_cast<int>(platform.size()))}};
  if (request.country) json["country"_L1] = QString::fromStdString(*request.country);
  return json;
}

}  // namespace

std::vector<SearchRequest> recentSearches(const QJsonValue& kept) {
  std::vector<SearchRequest> searches;
  for (const QJsonValue& value : kept.toArray()) {
    const QJsonObject object = value.toObject();
    SearchRequest request;
    request.query = object["query"_L1].toString().toStdString();
    if (request.query.empty()) continue;
    const std::string platform = object["platform"_L1].toString().toStdString();
    request.platform = valueOf(kPlatformWords, platform).value_or(request.platform);
    const std::string country = object["country"_L1].toString().toStdString();
    if (isCountryCode(country)) request.country = country;
    searches.push_back(std::move(request));
  }
  return searches;
}

QJsonArray withRecentSearch(const QJsonValue& kept, const SearchRequest& request) {
  return withOlderSearches({jsonOf(request)}, kept);
}

QJsonArray withOlderSearches(QJsonArray searches, const QJsonValue& older) {
  for (const QJsonValue& each : older.toArray()) {
    if (!searches.contains(each) && searches.size() < kKept) searches.append(each);
  }
  return searches;
}

}  // namespace quillet
