// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

// Puts half a million recorded prices into a library: through the data store, which leaves out what
// is there and tells what changed, and by a bare prepared statement on tables of the same shape.

#include <benchmark/benchmark.h>
#include <sqlite3.h>

#include <QTemporaryDir>
#include <cstdlib>

#include "library/data_store.h"
#include "library/recorded_history.h"
#include "library/schema/reference_date.h"
#include "net/run_task.h"

namespace quillet {
namespace {

constexpr std::int64_t kApps = 100'000;
constexpr int kPointsOfApp = 5;
constexpr std::size_t kPiece = 100'000;

using Points = std::vector<PricePoint>;

/// Five prices each of many apps, whose numbers come in no order.
Points points() {
  constexpr std::chrono::sys_days kStart = std::chrono::year(2026) / 1 / 1;
  Points all;
  for (std::int64_t app = 0; app < kApps; ++app) {
    for (int i = 0; i < kPointsOfApp; ++i) {
      all.push_back({0, 1'000'000'000 + app * 7919 % kApps, "us", 4.99 + i, "USD",
                     kStart + std::chrono::days(i * 9), true});
    }
  }
  return all;
}

/// A library of the newest revision in a folder of its own.
struct EmptyLibrary {
  EmptyLibrary() { LibraryConnection{file}; }

  QTemporaryDir folder;
  std::filesystem::path file = folder.filePath(QStringLiteral("default.store")).toStdString();
};

void insertBarely(sqlite3* database, const Points& all) {
  sqlite3_stmt* insert = nullptr;
  sqlite3_prepare_v2(database,
                     "INSERT INTO ZPRICEPOINT (ZTRACKID, ZCOUNTRY, ZPRICE, ZCURRENCY, ZDATE, "
                     "ZISBACKFILL) VALUES (?1, ?2, ?3, ?4, ?5, ?6)",
                     -1, &insert, nullptr);
  for (const PricePoint& point : all) {
    const auto bindText = [insert](int index, const std::string& text) {
      sqlite3_bind_text(insert, index, text.data(), static_cast<int>(text.size()), SQLITE_STATIC);
    };
    sqlite3_bind_int64(insert, 1, point.trackId);
    bindText(2, point.country);
    sqlite3_bind_double(insert, 3, point.price);
    bindText(4, *point.currency);
    sqlite3_bind_double(insert, 5, toReferenceSeconds(point.date));
    sqlite3_bind_int(insert, 6, 1);
    if (sqlite3_step(insert) != SQLITE_DONE) std::abort();
    sqlite3_reset(insert);
  }
  sqlite3_finalize(insert);
}

void bareLoop(benchmark::State& state) {
  const Points all = points();
  for (auto _ : state) {
    state.PauseTiming();
    const auto library = std::make_unique<EmptyLibrary>();
    std::optional<SQLite::Database> database(std::in_place, library->file,
                                             SQLite::OPEN_READWRITE | SQLite::OPEN_NOMUTEX);
    database->exec("PRAGMA synchronous = FULL");
    state.ResumeTiming();
    database->exec("BEGIN");
    insertBarely(database->getHandle(), all);
    database->exec("COMMIT");
    state.PauseTiming();
    database.reset();
    state.ResumeTiming();
  }
}
BENCHMARK(bareLoop)->Unit(benchmark::kMillisecond)->UseRealTime();

void dataStore(benchmark::State& state) {
  const Points all = points();
  for (auto _ : state) {
    state.PauseTiming();
    const auto library = std::make_unique<EmptyLibrary>();
    auto store = runTask(DataStore::open(library->file));
    state.ResumeTiming();
    for (auto from = all.begin(); from != all.end(); from += kPiece) {
      runTask(store->change(importPricePoints, Points(from, from + kPiece)));
    }
    state.PauseTiming();
    store.reset();
    state.ResumeTiming();
  }
}
BENCHMARK(dataStore)->Unit(benchmark::kMillisecond)->UseRealTime();

}  // namespace
}  // namespace quillet
