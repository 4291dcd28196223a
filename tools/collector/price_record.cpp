// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "collector/price_record.h"

#include <fmt/format.h>

#include <chrono>
#include <map>
#include <utility>

namespace quillet {

namespace {

struct KnownApp {
  ObservedApp app;
  bool hasMoved = false;
  Instant seen;  ///< of the epoch: not known
  bool isGone = false;
};

using KnownApps = std::map<std::int64_t, KnownApp>;

KnownApps knownAmong(SqlTransaction& transaction, const std::string& country,
                     const std::vector<ObservedApp>& apps) {
  KnownApps known;
  if (apps.empty()) return known;
  std::vector<std::int64_t> ids;
  for (const ObservedApp& app : apps) ids.push_back(app.trackId);
  transaction.each(
      fmt::format("SELECT track_id, name, seller, currency, kind, price, released, moved, "
                  "seen, gone FROM apps WHERE country = $1 AND track_id IN ({})",
                  fmt::join(ids, ",")),
      {country}, [&](const SqlRow& row) {
        const ObservedApp app{row.integer(0),
                              row.text(1),
                              row.text(2),
                              row.text(3),
                              row.text(4),
                              row.real(5),
                              restored(row.integer(6))};
        known.emplace(app.trackId, KnownApp{app, row.integer(7) != 0, restored(row.integer(8)),
                                            row.integer(9) != 0});
      });
  return known;
}

/// Writes down what one answer says, app by app.
class Recording {
 public:
  Recording(SqlTransaction& transaction, const std::string& country, Instant now)
      : transaction_(transaction), country_(country), now_(now) {}

  /// Begins an app's series of prices.
  void begin(const ObservedApp& app) {
    transaction_.run(
        "INSERT INTO apps (country, track_id, name, seller, currency, kind, price, released, "
        "since, moved, seen) VALUES ($1, $2, $3, $4, $5, $6, $7, $8, $9, 0, $9) "
        "ON CONFLICT (country, track_id) DO UPDATE SET name = excluded.name, "
        "seller = excluded.seller, currency = excluded.currency, kind = excluded.kind, "
        "price = excluded.price, released = excluded.released, since = excluded.since, moved = 0",
        {country_, app.trackId, app.name, app.seller, app.currency, app.kind, app.price,
         stored(app.released), stored(now_)});
    addPrice(app);
  }

  void addNext(const KnownApp& known, const ObservedApp& app) {
    const bool isOfOtherKind = !known.app.kind.empty() && app.kind != known.app.kind;
    if (app.currency != known.app.currency || isOfOtherKind) {
      touchesFile_ = true;
      keepSeries(app.trackId);
      return begin(app);
    }
    const bool hasChanged = app.price != known.app.price;
    const bool isPublished = known.hasMoved || hasChanged;
    transaction_.run(
        "UPDATE apps SET name = $3, seller = $4, kind = $5, price = $6, released = $7, moved = $8 "
        "WHERE country = $1 AND track_id = $2",
        {country_, app.trackId, app.name, app.seller, app.kind, app.price, stored(app.released),
         std::int64_t{isPublished ? 1 : 0}});
    if (hasChanged) {
      addPrice(app);
      ++changed_;
    }
    if (hasChanged || (known.hasMoved && saysOtherwise(known.app, app))) touchesFile_ = true;
  }

  /// That the storefront sells these.
  void see(const std::vector<std::int64_t>& ids) {
    if (ids.empty()) return;
    transaction_.run(fmt::format("UPDATE apps SET seen = $2, gone = 0 WHERE country = $1 AND "
                                 "track_id IN ({})",
                                 fmt::join(ids, ",")),
                     {country_, stored(now_)});
  }

  void miss(const std::vector<std::int64_t>& ids) {
    for (const int moved : {1, 0}) {
      const auto gone =
          transaction_.run(fmt::format("UPDATE apps SET gone = $2 WHERE country = $1 AND gone = 0 "
                                       "AND moved = {} AND track_id IN ({})",
                                       moved, fmt::join(ids, ",")),
                           {country_, stored(now_)});
      if (moved == 1 && gone > 0) touchesFile_ = true;
    }
  }

  void touchFile() { touchesFile_ = true; }

  /// The storefront's stamp moves to now with whatever changes its file. Where the clock goes back
  /// (several machines have several) it stays; the publisher sees to it that what it publishes has
  /// another than before.
  void stamp() {
    const char* onConflict = touchesFile_
                                 ? "DO UPDATE SET stamp = CASE "
                                   "WHEN storefronts.stamp < excluded.stamp THEN excluded.stamp "
                                   "ELSE storefronts.stamp END"
                                 : "DO NOTHING";
    const auto seconds = std::chrono::floor<std::chrono::seconds>(now_);
    transaction_.run(
        fmt::format("INSERT INTO storefronts (country, stamp, published) VALUES ($1, $2, 0) "
                    "ON CONFLICT (country) {}",
                    onConflict),
        {country_, stored(seconds)});
  }

  [[nodiscard]] std::int64_t changed() const { return changed_; }

 private:
  static bool saysOtherwise(const ObservedApp& before, const ObservedApp& now) {
    return before.name != now.name || before.seller != now.seller || before.kind != now.kind;
  }

  /// One that begins anew stays in the record, unpublished.
  void keepSeries(std::int64_t id) {
    transaction_.run(
        "INSERT INTO former_series (country, track_id, since, currency, kind, released, seen) "
        "SELECT country, track_id, since, currency, kind, released, seen FROM apps "
        "WHERE country = $1 AND track_id = $2 ON CONFLICT DO NOTHING",
        {country_, id});
  }

  void addPrice(const ObservedApp& app) {
    transaction_.run(
        "INSERT INTO prices (country, track_id, seen, price) VALUES ($1, $2, $3, $4) "
        "ON CONFLICT (country, track_id, seen) DO UPDATE SET price = excluded.price",
        {country_, app.trackId, stored(now_), app.price});
  }

  SqlTransaction& transaction_;
  const std::string& country_;
  Instant now_;
  std::int64_t changed_ = 0;
  bool touchesFile_ = false;
};

/// One ID can stand for a Mac and an iOS record, each with prices and versions of its own. Where
/// the kind was not told, any may follow.
bool isOfOtherRecord(const KnownApp& known, const ObservedApp& app, Instant now) {
  const std::string& kind = known.app.kind;
  if (kind.empty() || app.kind == kind) return false;
  return now < known.seen + kFaithToKind;
}

/// Where this answer does not tell the kind, it is the one that is known.
ObservedApp withKind(ObservedApp app, const ObservedApp& known) {
  if (app.kind.empty()) app.kind = known.kind;
  return app;
}

bool isOutdated(const ObservedApp& known, const ObservedApp& app) {
  return app.kind == known.kind && app.released < known.released;
}

}  // namespace

std::int64_t recordPrices(SqlTransaction& transaction, const std::string& country,
                          const std::vector<ObservedApp>& apps, Instant now) {
  const KnownApps known = knownAmong(transaction, country, apps);
  Recording recording(transaction, country, now);
  std::vector<std::int64_t> seen;
  for (const ObservedApp& each : apps) {
    const auto found = known.find(each.trackId);
    if (found == known.end()) {
      recording.begin(each);
      continue;
    }
    const KnownApp& before = found->second;
    const ObservedApp app = withKind(each, before.app);
    if (isOfOtherRecord(before, app, now)) continue;
    seen.push_back(app.trackId);
    if (before.isGone && before.hasMoved) recording.touchFile();
    if (before.app != app && !isOutdated(before.app, app)) recording.addNext(before, app);
  }
  recording.see(seen);
  recording.stamp();
  return recording.changed();
}

void recordMissing(SqlTransaction& transaction, const std::string& country,
                   const std::vector<std::int64_t>& ids, Instant now) {
  if (ids.empty()) return;
  Recording recording(transaction, country, now);
  recording.miss(ids);
  recording.stamp();
}

void noteLook(SqlTransaction& transaction, const std::string& country, Instant now) {
  transaction.run("UPDATE storefronts SET looked = $2 WHERE country = $1 AND looked < $2",
                  {country, stored(now)});
}

std::optional<Instant> lookOf(SqlTransaction& transaction, const std::string& country) {
  std::optional<Instant> look;
  transaction.each("SELECT looked FROM storefronts WHERE country = $1 AND looked <> 0", {country},
                   [&](const SqlRow& row) { look = restored(row.integer(0)); });
  return look;
}

std::int64_t soldAmong(SqlTransaction& transaction, const std::string& country,
                       const std::vector<std::int64_t>& ids) {
  std::int64_t sold = 0;
  transaction.each(fmt::format("SELECT COUNT(*) FROM apps WHERE country = $1 AND gone = 0 AND "
                               "track_id IN ({})",
                               fmt::join(ids, ",")),
                   {country}, [&](const SqlRow& row) { sold = row.integer(0); });
  return sold;
}

std::vector<std::int64_t> recordedIds(SqlTransaction& transaction) {
  std::vector<std::int64_t> ids;
  transaction.each("SELECT DISTINCT track_id FROM apps ORDER BY track_id", {},
                   [&](const SqlRow& row) { ids.push_back(row.integer(0)); });
  return ids;
}

std::optional<Instant> stampOf(SqlTransaction& transaction, const std::string& country) {
  std::optional<Instant> stamp;
  transaction.each("SELECT stamp FROM storefronts WHERE country = $1", {country},
                   [&](const SqlRow& row) { stamp = restored(row.integer(0)); });
  return stamp;
}

void eachMovedApp(SqlTransaction& transaction, const std::string& country,
                  const std::function<void(RecordedApp)>& visit) {
  RecordedApp app;
  const auto leave = [&] {
    if (!app.prices.empty()) visit(std::exchange(app, {}));
  };
  transaction.each(
      "SELECT a.track_id, a.name, a.seller, a.currency, a.kind, a.gone, p.seen, p.price FROM apps "
      "a "
      "JOIN prices p ON p.country = a.country AND p.track_id = a.track_id AND p.seen >= a.since "
      "WHERE a.country = $1 AND a.moved = 1 ORDER BY a.track_id, p.seen",
      {country}, [&](const SqlRow& row) {
        if (app.trackId != row.integer(0)) {
          leave();
          app = {row.integer(0), row.text(1), row.text(2), row.text(3), row.text(4), {}, {}};
          if (row.integer(5) != 0) app.goneSince = restored(row.integer(5));
        }
        app.prices.push_back({restored(row.integer(6)), row.real(7)});
      });
  leave();
}

}  // namespace quillet
