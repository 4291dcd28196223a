// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QTemporaryDir>
#include <filesystem>
#include <memory>
#include <string>

#include "library/data_store.h"
#include "library/schema/entities.h"
#include "net/run_task.h"

namespace quillet {

/// A folder for one library, gone with its test.
class LibraryFolder {
 public:
  [[nodiscard]] std::filesystem::path file() const {
    return std::filesystem::path(folder_.path().toStdString()) / "default.store";
  }
  [[nodiscard]] std::unique_ptr<DataStore> open() const { return runTask(DataStore::open(file())); }

 private:
  QTemporaryDir folder_;
};

inline Instant dayAndSecond(int day, int second = 0) {
  return std::chrono::sys_days{std::chrono::year{2026} / 3 / 1} + std::chrono::days{day} +
         std::chrono::seconds{second};
}

/// What the rows of all lists hold of an app.
template <typename Row>
Row listed(std::int64_t trackId, std::string name) {
  Row row;
  row.trackId = trackId;
  row.country = "us";
  row.platformRaw = "mac";
  row.name = std::move(name);
  return row;
}

inline WatchedApp watched(std::int64_t trackId, std::string country = "us") {
  auto app = listed<WatchedApp>(trackId, "Paperfold " + std::to_string(trackId));
  app.country = std::move(country);
  app.priceWhenAdded = app.currentPrice = 4.99;
  app.addedAt = dayAndSecond(static_cast<int>(trackId));
  return app;
}

inline OwnedApp owned(std::int64_t trackId, std::string name = "Inkwell") {
  auto app = listed<OwnedApp>(trackId, std::move(name));
  app.sourceRaw = "scanned";
  return app;
}

inline CollectionEntry entry(std::int64_t trackId, std::string note = "") {
  auto row = listed<CollectionEntry>(trackId, "Inkwell");
  row.note = std::move(note);
  row.addedAt = dayAndSecond(static_cast<int>(trackId));
  return row;
}

inline CachedApp cached(std::int64_t trackId, std::string name = "Inkwell") {
  return {.trackId = trackId, .country = "us", .name = std::move(name)};
}

}  // namespace quillet
