// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/sections/search/search_runs.h"

#include <QCoreApplication>
#include <QJsonArray>
#include <QJsonObject>
#include <algorithm>

#include "base/text.h"
#include "desktop/models/time_words.h"
#include "desktop/store_lists/store_feed.h"
#include "library/saved_searches.h"

namespace quillet {

namespace {

using namespace Qt::StringLiterals;

const QString kKey = u"savedSearchRuns"_s;

QJsonObject jsonOf(const SearchRun& run) {
  QJsonArray apps;
  for (const std::int64_t app : run.apps) apps.append(QString::number(app));
  return {{"when"_L1, QString::number(run.when.time_since_epoch().count())}, {"apps"_L1, apps}};
}

std::optional<SearchRun> runOf(const QJsonValue& json) {
  bool isNumber = false;
  const auto when = json["when"_L1].toString().toLongLong(&isNumber);
  if (!isNumber) return {};
  SearchRun run{Instant(std::chrono::milliseconds(when)), {}};
  for (const QJsonValue& app : json["apps"_L1].toArray())
    run.apps.insert(app.toString().toLongLong());
  return run;
}

}  // namespace

RowId SearchRuns::find(const SearchRequest& request) const {
  const std::string storefront = world_.storefront();
  const auto found = std::ranges::find_if(saved_, [&](const SavedSearch& each) {
    const SearchRequest saved = requestOf(each);
    return trimmed(saved.query) == trimmed(request.query) && saved.platform == request.platform &&
           saved.country.value_or(storefront) == request.country.value_or(storefront) &&
           saved.filters == request.filters;
  });
  return found == saved_.end() ? 0 : found->id;
}

std::optional<SearchRun> SearchRuns::kept(RowId saved) const {
  return runOf(world_.state.value(kKey).toObject()[QString::number(saved)]);
}

void SearchRuns::note(RowId saved, const StoreFeed& feed) {
  const Instant when = feed.found()->asOf;
  before_.try_emplace({saved, when}, kept(saved));
  QJsonObject runs;
  const QJsonObject all = world_.state.value(kKey).toObject();
  for (const SavedSearch& each : saved_) {
    const QString id = QString::number(each.id);
    if (all.contains(id)) runs[id] = all[id];
  }
  const auto last = kept(saved);
  // An older answer that is come back to is no later run.
  if (!last || last->when <= when)
    runs[QString::number(saved)] = jsonOf(SearchRun{when, feed.passing()});
  if (runs != all) world_.state.setValue(kKey, runs);
}

QString SearchRuns::news(RowId saved, const StoreFeed& feed) const {
  const auto run = before_.find({saved, feed.found()->asOf});
  if (run == before_.end() || !run->second) return {};
  const SearchRun& before = *run->second;
  const auto isNew = [&](std::int64_t app) { return !before.apps.contains(app); };
  const auto count = std::ranges::count_if(feed.shown(), isNew);
  if (count == 0) return {};
  return QCoreApplication::translate("Search", "%1 new since %2")
      .arg(QString::number(count), dateText(before.when, world_.clock.now(), world_.zone));
}

}  // namespace quillet
