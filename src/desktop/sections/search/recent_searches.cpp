// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/sections/search/recent_searches.h"

#include <QJsonObject>

#include "base/text.h"

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

QJsonArray withRecentSearch(const QJsonValue& kept, const SearchRequest& request) {
  const QJsonObject latest = jsonOf(request);
  QJsonArray searches{latest};
  for (const QJsonValue& each : kept.toArray()) {
    if (each != latest && searches.size() < kKept) searches.append(each);
  }
  return searches;
}

}  // namespace quillet
