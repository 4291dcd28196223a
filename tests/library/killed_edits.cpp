// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include <SQLiteCpp/Statement.h>

#include <cstdlib>
#include <functional>
#include <random>
#include <vector>

#include "base/numbers.h"
#include "base/text.h"
#include "desktop/services/edit_history.h"
#include "desktop/services/library_gateway.h"
#include "library/cached_apps.h"
#include "library/collection_steps.h"
#include "library/data_store.h"
#include "library/import_records.h"
#include "library/killed_writers.h"

namespace quillet {
namespace {

constexpr const char* kCounter = "edits";  // its stamp: the last edit's number, what it left behind
constexpr std::int64_t kApps = 30;
constexpr QLatin1StringView kNoCollection("FOREIGN KEY");  // where entries are to be added

// ---- What the library holds, and which edit left it so

/// Each row of each table but the counter's, in one number.
std::size_t fingerprint(SQLite::Database& database) {
  std::string all;
  SQLite::Statement tables(database,
                           "SELECT name FROM sqlite_master WHERE type = 'table' AND name LIKE 'Z%' "
                           "AND name <> 'ZIMPORTRECORD' ORDER BY name");
  while (tables.executeStep()) {
    const std::string table = tables.getColumn(0).getString();
    SQLite::Statement rows(database, "SELECT * FROM " + table + " ORDER BY rowid");
    all += table + '\n';
    while (rows.executeStep()) {
      for (int i = 0; i < rows.getColumnCount(); ++i) all += rows.getColumn(i).getString() + '|';
      all += '\n';
    }
  }
  return std::hash<std::string>()(all);
}

std::int64_t numberIn(SQLite::Database& database) {
  const auto counter = importRecord(database, kCounter);
  return counter ? parseWhole(split(counter->stamp, ' ').at(0)).value_or(-1) : 0;
}

/// Notes within the edit's own transaction what it has made of the library.
std::int64_t countChange(WriteTransaction& transaction) {
  const std::int64_t number = numberIn(transaction.database) + 1;
  const std::string stamp = fmt::format("{} {}", number, fingerprint(transaction.database));
  recordImport(transaction, {0, kCounter, stamp, {}});
  return number;
}

EditStep counted(EditStep step) {
  return {[step = std::move(step)](WriteTransaction& transaction) {
    EditStep back = step.run(transaction);
    countChange(transaction);
    return back ? counted(std::move(back)) : EditStep();
  }};
}

std::int64_t lastEdit(SQLite::Database& database) {
  const std::int64_t number = numberIn(database);
  if (number == 0) return 0;
  require(importRecord(database, kCounter)->stamp ==
              fmt::format("{} {}", number, fingerprint(database)),
          fmt::format("the library is not as edit {} left it", number));
  return number;
}

// ---- Edits of anything there is

using Seed = std::mt19937::result_type;

/// Draws what an edit is about.
class Draw {
 public:
  Draw(Seed seed, SQLite::Database& database) : random_(seed), database_(database) {}

  std::size_t below(std::size_t bound) { return random_() % bound; }
  AppKey app() { return {1 + static_cast<std::int64_t>(below(kApps)), "us"}; }
  std::vector<AppKey> apps() { return {app(), app(), app()}; }
  /// Unlike any other.
  std::string name() { return fmt::format("Name {}", random_()); }

  /// The key of any row of that table, or 0 where there is none.
  RowId row(const char* table) {
    std::vector<RowId> keys;
    SQLite::Statement rows(database_, fmt::format("SELECT Z_PK FROM {}", table));
    while (rows.executeStep()) keys.push_back(rows.getColumn(0).getInt64());
    return keys.empty() ? 0 : keys[below(keys.size())];
  }
  RowId collection() { return row("ZAPPCOLLECTION"); }

  WatchedApp watched() {
    return {.trackId = app().trackId, .country = "us", .platformRaw = "mac", .name = name()};
  }
  OwnedApp owned() { return {.trackId = app().trackId, .country = "us", .name = name()}; }
  CollectionEntry entry() { return {.trackId = app().trackId, .country = "us", .note = name()}; }

 private:
  std::mt19937 random_;
  SQLite::Database& database_;
};

std::string nameOfCopy(const std::string& name, const std::vector<std::string>& taken) {
  return fmt::format("{} {}", name.substr(0, 10), taken.size());
}

WatchOptions drawnOptions(Draw& draw) {
  return {.alertOnFree = draw.below(2) == 0,
          .alertOnNewVersion = draw.below(2) == 0,
          .targetPrice = static_cast<double>(draw.below(100)),
          .mutedUntil = Instant(std::chrono::milliseconds(draw.below(1'000'000)))};
}

ReadState drawnState(Draw& draw) {
  return draw.below(2) == 0 ? ReadState::read : ReadState::unread;
}

/// Every kind of edit; those that make rows weigh as much as those that remove them.
constexpr EditStep (*kKinds[])(Draw&) = {
    [](Draw& draw) { return watching({draw.watched(), draw.watched()}); },
    [](Draw& draw) { return unwatching(draw.apps()); },
    [](Draw& draw) {
      return settingWatches({{draw.app(), drawnOptions(draw)}, {draw.app(), drawnOptions(draw)}});
    },
    [](Draw& draw) { return owning({draw.owned(), draw.owned()}); },
    [](Draw& draw) { return disowning(draw.apps()); },
    [](Draw& draw) {
      return settingOwned({{draw.app(), {static_cast<double>(draw.below(50)), "EUR", {}, {}}}});
    },
    [](Draw& draw) {
      return addingCollection({0, draw.name(), "box", {}}, {draw.entry(), draw.entry()});
    },
    [](Draw& draw) { return settingCollection({draw.collection(), draw.name(), "pen", {}}); },
    [](Draw& draw) { return removingCollections({draw.collection(), draw.collection()}); },
    [](Draw& draw) {
      return addingEntries(draw.collection(), {draw.entry(), draw.entry(), draw.entry()});
    },
    [](Draw& draw) { return removingEntries({draw.row("ZCOLLECTIONENTRY")}); },
    [](Draw& draw) { return removingFrom(draw.collection(), draw.apps()); },
    [](Draw& draw) { return settingNote(draw.row("ZCOLLECTIONENTRY"), draw.name()); },
    [](Draw& draw) { return noting(draw.collection(), draw.app(), draw.name()); },
    [](Draw& draw) { return duplicatingCollection(draw.collection(), {}, nameOfCopy); },
    [](Draw& draw) { return movingEntries(draw.collection(), draw.collection(), draw.apps()); },
    [](Draw& draw) { return addingSearch({.name = draw.name(), .query = "notes"}); },
    [](Draw& draw) {
      return settingSearch({.id = draw.row("ZSAVEDSEARCH"), .name = draw.name(), .query = "mail"});
    },
    [](Draw& draw) { return renamingSearch(draw.row("ZSAVEDSEARCH"), draw.name()); },
    [](Draw& draw) { return removingSearches({draw.row("ZSAVEDSEARCH")}); },
    [](Draw& draw) {
      return markingAlerts({draw.row("ZALERTRECORD"), draw.row("ZALERTRECORD")}, drawnState(draw));
    },
    [](Draw&) { return markingAllAlertsRead(); },
    [](Draw& draw) { return removingAlerts({draw.row("ZALERTRECORD")}); },
    [](Draw& draw) { return forgettingViews(draw.apps()); },
    [](Draw&) { return forgettingAllViews(); },
    [](Draw& draw) {
      return together({removingCollections({draw.collection()}), unwatching(draw.apps()),
                       owning({draw.owned()}),
                       addingCollection({0, draw.name(), "box", {}}, {draw.entry()})});
    }};

/// Drawn when it is its turn, from what there is then.
EditStep drawnStep(Seed seed) {
  return {[seed](WriteTransaction& transaction) {
    Draw draw(seed, transaction.database);
    return kKinds[draw.below(std::size(kKinds))](draw).run(transaction);
  }};
}

void takeTurn(EditHistory& history, std::mt19937& random) {
  const auto way = random() % 4;
  if (way == 0 && !history.undoName().isEmpty()) return history.undo();
  if (way == 1 && !history.redoName().isEmpty()) return history.redo();
  const QString text = QStringLiteral("Edit");
  history.perform({text, text, text, counted(drawnStep(random()))});
}

/// What edits change and none of them makes: alerts, and pages that were opened.
std::int64_t makeRest(WriteTransaction& transaction) {
  std::vector<AlertRecord> alerts;
  for (std::int64_t app = 1; app <= kApps; ++app) {
    alerts.push_back({.trackId = app, .country = "us", .kindRaw = "priceDrop"});
    recordView(transaction, {.trackId = app, .country = "us", .name = "Inkwell"}, Instant{});
  }
  addAlerts(transaction, alerts);
  return countChange(transaction);
}

Task<> writeEdits(std::string file) {
  const auto store = co_await DataStore::open(std::move(file));
  LibraryGateway gateway;
  gateway.use(*store);
  EditHistory history(gateway);
  std::mt19937 random(std::random_device{}());
  std::int64_t number = co_await store->change(makeRest);
  reportChange(number);
  Completion turned;
  bool isDone = true;
  // One that is refused has changed nothing.
  QObject::connect(&history, &EditHistory::failed, &history, [&](const QString& why) {
    isDone = false;
    if (!why.contains(kNoCollection)) {
      fmt::print(stderr, "{}\n", why.toStdString());
      std::_Exit(1);
    }
  });
  QObject::connect(&history, &EditHistory::changed, &history, [&] {
    if (std::exchange(isDone, true)) reportChange(++number);
    turned.set();
  });
  for (;;) {
    turned = Completion();
    takeTurn(history, random);
    co_await turned;
  }
}

}  // namespace

const KilledWriter kEdits{"edits", writeEdits, lastEdit};

}  // namespace quillet
