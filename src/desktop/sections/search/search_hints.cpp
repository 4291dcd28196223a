// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/sections/search/search_hints.h"

#include <QCoreApplication>
#include <QJsonArray>
#include <QJsonObject>
#include <algorithm>
#include <set>

#include "desktop/models/row_parts.h"
#include "library/cached_apps.h"
#include "library/owned_apps.h"
#include "library/saved_searches.h"
#include "library/watched_apps.h"
#include "system/country_codes.h"

namespace quillet {

namespace {

constexpr std::size_t kMostRecent = 4;  // of those that are shown
constexpr std::size_t kMostSaved = 3;
constexpr std::size_t kMostRead = 2'000;  // of each list of apps

QString tr(const char* text) { return QCoreApplication::translate("SearchHints", text); }

QString foldedLine(const QString& text) { return text.simplified().toCaseFolded(); }

SearchHint hint(HintKind kind, const QString& text, StoreQuery query) {
  return {kind, text, std::move(query), foldedLine(text)};
}

/// What comes first in a list is known best, and lists may be long.
template <typename Apps>
void addNames(std::vector<SearchHint>& hints, HintKind kind, const Apps& apps) {
  std::size_t count = 0;
  for (const auto& app : apps) {
    if (count++ == kMostRead) return;
    const QString name = plainLine(app.name);
    if (name.isEmpty()) continue;
    StoreQuery query;
    query.request.query = name.toStdString();
    hints.push_back(hint(kind, name, std::move(query)));
  }
}

bool beginsAWord(const QString& text, const QString& word) {
  for (qsizetype at = text.indexOf(word); at >= 0; at = text.indexOf(word, at + 1)) {
    if (at == 0 || !text[at - 1].isLetterOrNumber()) return true;
  }
  return false;
}

bool matchesWords(const SearchHint& hint, const QStringList& words) {
  return std::ranges::all_of(words,
                             [&](const QString& word) { return beginsAWord(hint.folded, word); });
}

bool isSearch(HintKind kind) { return kind == HintKind::recent || kind == HintKind::saved; }

std::size_t mostOf(HintKind kind) {
  if (kind == HintKind::recent) return kMostRecent;
  return kind == HintKind::saved ? kMostSaved : kMostHints;
}

/// Those of a kind that match: first what begins with the words, each in the order of the list.
std::vector<const SearchHint*> ofKind(const std::vector<SearchHint>& all, HintKind kind,
                                      const QStringList& words) {
  const QString begin = words.join(u' ');
  std::vector<const SearchHint*> found;
  std::vector<const SearchHint*> others;
  for (const SearchHint& each : all) {
    if (each.kind != kind || !matchesWords(each, words)) continue;
    (each.folded.startsWith(begin) ? found : others).push_back(&each);
  }
  found.insert(found.end(), others.begin(), others.end());
  return found;
}

}  // namespace

std::vector<SearchRequest> recentSearches(const QJsonValue& kept) {
  std::vector<SearchRequest> searches;
  for (const QJsonValue& value : kept.toArray()) {
    const QJsonObject object = value.toObject();
    SearchRequest request;
    request.query = object[u"query"].toString().toStdString();
    if (request.query.empty()) continue;
    const std::string platform = object[u"platform"].toString().toStdString();
    request.platform = valueOf(kPlatformWords, platform).value_or(request.platform);
    const std::string country = object[u"country"].toString().toStdString();
    if (isCountryCode(country)) request.country = country;
    searches.push_back(std::move(request));
  }
  return searches;
}

std::vector<SearchHint> hintsOf(const std::vector<SearchRequest>& recent) {
  std::vector<SearchHint> hints;
  for (const SearchRequest& request : recent) {
    const QString text = plainLine(request.query);
    if (!text.isEmpty()) hints.push_back(hint(HintKind::recent, text, {request, {}}));
  }
  return hints;
}

std::vector<SearchHint> libraryHints(SQLite::Database& database) {
  std::vector<SearchHint> hints;
  for (const SavedSearch& search : savedSearches(database))
    hints.push_back(hint(HintKind::saved, nameLine(search.name), {requestOf(search), {}}));
  addNames(hints, HintKind::watched, watchedApps(database));
  addNames(hints, HintKind::owned, ownedApps(database));
  addNames(hints, HintKind::seen, viewedApps(database, kMostRead));
  return hints;
}

std::vector<SearchHint> matchingHints(const std::vector<SearchHint>& all, const QString& typed) {
  const QStringList words = foldedLine(typed).split(u' ', Qt::SkipEmptyParts);
  std::vector<SearchHint> found;
  std::set<QString> texts;
  for (const HintKind kind :
       {HintKind::recent, HintKind::saved, HintKind::watched, HintKind::owned, HintKind::seen}) {
    if (words.isEmpty() && !isSearch(kind)) break;
    std::size_t room = std::min(mostOf(kind), kMostHints - found.size());
    for (const SearchHint* each : ofKind(all, kind, words)) {
      if (room == 0) break;
      if (!texts.insert(each->folded).second) continue;
      found.push_back(*each);
      --room;
    }
  }
  return found;
}

QString kindText(HintKind kind) {
  switch (kind) {
    case HintKind::recent: return tr("recent search");
    case HintKind::saved: return tr("saved search");
    case HintKind::watched: return tr("in the watchlist");
    case HintKind::owned: return tr("in My Apps");
    case HintKind::seen: return tr("looked at");
  }
  return {};
}

QString iconOf(HintKind kind) {
  switch (kind) {
    case HintKind::recent: return QStringLiteral("clock");
    case HintKind::saved: return QStringLiteral("bookmark");
    case HintKind::watched: return QStringLiteral("eye");
    case HintKind::owned: return QStringLiteral("grid");
    case HintKind::seen: return QStringLiteral("clock-history");
  }
  return {};
}

QString asideOf(const SearchRequest& request, const std::string& storefront) {
  QStringList parts;
  if (request.platform != Platform::mac) parts << platformText(request.platform);
  if (request.country && *request.country != storefront)
    parts << QString::fromStdString(*request.country);
  return parts.join(QStringLiteral(" · "));
}

}  // namespace quillet
