// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/models/watch_edits.h"

#include <QCoreApplication>
#include <algorithm>
#include <iterator>
#include <utility>

#include "analysis/app_build.h"
#include "analysis/recorded_price.h"
#include "desktop/models/row_parts.h"
#include "library/cached_apps.h"
#include "library/store_rows.h"
#include "system/settings_keys.h"

namespace quillet {

namespace {

QString tr(const char* text, int count = -1) {
  return QCoreApplication::translate("Watching", text, nullptr, count);
}

/// "“Paperfold”", or "3 apps".
QString called(const WatchedNames& names) {
  if (names.count == 1) return tr("“%1”").arg(names.one);
  return tr("%n apps", static_cast<int>(names.count));
}

void takePrice(WatchedApp& row, const WatchedApp& known) {
  row.priceWhenAdded = row.currentPrice = known.currentPrice;
  row.formattedPrice = known.formattedPrice;
  row.currency = known.currency;
}

/// What the record lacks stays as a list had it, and so does a price that is newer. `asOf`: when
/// the store told the record.
WatchedApp describedBy(const ITunesApp& record, Instant asOf, const AppToWatch& app, Instant now) {
  const WatchedApp& known = app.row;
  const Platform platform =
      valueOf(kPlatformWords, known.platformRaw).value_or(ownPlatform(record));
  WatchedApp row = watchedAppOf(record, {known.country, platform, now});
  row.trackId = known.trackId;
  if (row.name.empty()) row.name = known.name;
  if (!row.sellerName) row.sellerName = known.sellerName;
  if (!row.artworkUrl) row.artworkUrl = known.artworkUrl;
  if (!row.trackViewUrl) row.trackViewUrl = known.trackViewUrl;
  if (!lacksPrice(known) && (!record.price || asOf < app.pricedAt.value_or(asOf)))
    takePrice(row, known);
  return row;
}

WatchedApp rowFor(SQLite::Database& database, const AppToWatch& app, Instant now) {
  const std::vector<CachedApp> kept = cachedAppsOf(database, {keyOf(app.row)});
  const bool isKeptNewer =
      !kept.empty() && (!app.record || app.record->asOf < kept.front().updatedAt);
  if (isKeptNewer) return describedBy(recordOf(kept.front()), kept.front().updatedAt, app, now);
  if (app.record) return describedBy(app.record->app, app.record->asOf, app, now);
  return app.row;
}

EditStep changing(std::vector<AppKey> apps, const WatchChange& change) {
  return {[apps = std::move(apps), change](WriteTransaction& transaction) {
    std::vector<WatchEdit> edits;
    for (const WatchedApp& app : watchedAppsOf(transaction.database, apps)) {
      const WatchOptions after = changed(app, change);
      if (after != optionsOf(app)) edits.push_back({keyOf(app), after});
    }
    return settingWatches(std::move(edits)).run(transaction);
  }};
}

}  // namespace

/// Records are read when it is done, and not before.
EditStep watchingNew(std::vector<AppToWatch> apps, const WatchOptions& options, Instant now) {
  return {[apps = std::move(apps), options, now](WriteTransaction& transaction) {
    std::vector<WatchedApp> rows;
    for (const AppToWatch& app : apps) {
      WatchedApp row = rowFor(transaction.database, app, now);
      row.addedAt = now;
      setOptions(row, options);
      rows.push_back(std::move(row));
    }
    return watching(std::move(rows)).run(transaction);
  }};
}

AppToWatch toWatch(const AppRow& row, const RecordShelf& records) {
  WatchedApp known;
  known.trackId = row.key.app.trackId;
  known.country = row.key.app.country;
  known.platformRaw = textOf(kPlatformWords, row.platform);
  known.name = row.name.toStdString();
  if (!row.seller.isEmpty()) known.sellerName = row.seller.toStdString();
  if (!row.artwork.empty()) known.artworkUrl = row.artwork;
  known.formattedPrice = kPriceUntold;
  if (row.price.amount && row.price.kind == PriceKind::asked) {
    known.priceWhenAdded = known.currentPrice = *row.price.amount;
    known.formattedPrice = row.price.text.toStdString();
    if (!row.price.currency.empty()) known.currency = row.price.currency;
  }
  return {std::move(known), row.price.asOf, records.find(row.key.app)};
}

AppToWatch toWatch(const PageFacts& facts, const RecordShelf& records) {
  std::optional<ShelvedRecord> record = records.find(facts.app);
  WatchedApp known;
  known.trackId = facts.app.trackId;
  known.country = facts.app.country;
  std::optional<Platform> platform = facts.listedAs;
  if (!platform && facts.store) platform = facts.store->app.platform;
  if (!platform && record) platform = record->platform;
  if (platform) known.platformRaw = textOf(kPlatformWords, *platform);
  known.name = facts.name;
  known.sellerName = facts.seller;
  known.artworkUrl = facts.artwork;
  known.trackViewUrl = facts.link;
  known.formattedPrice = kPriceUntold;
  return {std::move(known), {}, std::move(record)};
}

WatchOptions watchDefaults(const Settings& settings) {
  WatchOptions options;
  options.alertOnAnyDrop = readSetting(settings, kWatchAnyDrop);
  options.alertOnFree = readSetting(settings, kWatchFree);
  options.alertOnNewVersion = readSetting(settings, kWatchNewVersion);
  options.alertOnPurchasePrices = readSetting(settings, kWatchPurchases);
  return options;
}

WatchOptions changed(const WatchedApp& app, const WatchChange& change) {
  WatchOptions options = optionsOf(app);
  options.alertOnAnyDrop = change.anyDrop.value_or(options.alertOnAnyDrop);
  options.alertOnFree = change.whenFree.value_or(options.alertOnFree);
  options.alertOnNewVersion = change.newVersion.value_or(options.alertOnNewVersion);
  options.alertOnPurchasePrices = change.purchases.value_or(options.alertOnPurchasePrices);
  if (change.target && change.target->price != knownTargetPrice(app)) {
    options.targetPrice = change.target->price;
    options.targetCurrency.reset();
  }
  if (change.mute) options.mutedUntil = change.mute->until;
  return options;
}

LibraryEdit watchEdit(std::vector<AppToWatch> apps, const WatchOptions& options, Instant now) {
  const QString name =
      called({apps.empty() ? QString() : nameLine(apps.front().row.name), apps.size()});
  return {tr("Watch %1").arg(name), tr("Watching %1.").arg(name), tr("%1: not watched.").arg(name),
          watchingNew(std::move(apps), options, now)};
}

LibraryEdit targetEdit(const std::vector<AppToWatch>& apps, const WatchOptions& options,
                       Instant now) {
  const QString name = called({nameLine(apps.front().row.name), apps.size()});
  std::vector<EditStep> steps{watchingNew(apps, options, now)};
  for (const AppToWatch& app : apps) {
    WatchChange change;
    change.target = WatchChange::Target{app.row.currentPrice};
    steps.push_back(changing({keyOf(app.row)}, change));
  }
  if (apps.size() > 1)
    return {tr("Watch %1 at Their Prices").arg(name),
            tr("Watching %1, with their prices as targets.").arg(name),
            tr("%1: not watched.").arg(name), together(std::move(steps)),
            tr("%1 are watched with these targets.").arg(name)};
  const QString price = plainLine(apps.front().row.formattedPrice);
  return {tr("Watch %1 at %2").arg(name, price),
          tr("Watching %1, with %2 as target.").arg(name, price), tr("%1: not watched.").arg(name),
          together(std::move(steps)), tr("%1 is watched with that target.").arg(name)};
}

LibraryEdit stopEdit(std::vector<AppKey> apps, const WatchedNames& names) {
  const QString name = called(names);
  return {tr("Stop Watching %1").arg(name), tr("Stopped watching %1.").arg(name),
          tr("%1: still watched.").arg(name), unwatching(std::move(apps))};
}

LibraryEdit changeEdit(std::vector<AppKey> apps, const WatchedNames& names,
                       const WatchChange& change) {
  const QString name = called(names);
  return {tr("Change Watch Options of %1").arg(name),
          tr("Changed the watch options of %1.").arg(name), tr("%1: not changed.").arg(name),
          changing(std::move(apps), change)};
}

LibraryEdit muteEdit(std::vector<AppKey> apps, const WatchedNames& names,
                     std::optional<Instant> until) {
  const QString name = called(names);
  WatchChange change;
  change.mute = WatchChange::Mute{until};
  const EditStep step = changing(std::move(apps), change);
  const QString notDone = tr("%1: not changed.").arg(name);
  if (!until)
    return {tr("Turn On Alerts of %1").arg(name), tr("Alerts of %1 are on.").arg(name), notDone,
            step};
  return {tr("Mute Alerts of %1").arg(name), tr("Muted the alerts of %1.").arg(name), notDone,
          step};
}

}  // namespace quillet
