// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <gtest/gtest.h>

#include <QObject>
#include <filesystem>
#include <memory>
#include <string>

#include "library/data_store.h"
#include "library/schema/entities.h"
#include "net/run_task.h"
#include "support/fake_clock.h"
#include "support/memory_settings.h"
#include "support/scripted_http_client.h"
#include "support/temporary_folder.h"

namespace quillet {

/// A folder for one library, gone with its test.
class LibraryFolder {
 public:
  [[nodiscard]] std::filesystem::path file() const { return folder_.path() / "default.store"; }
  [[nodiscard]] std::unique_ptr<DataStore> open() const { return runTask(DataStore::open(file())); }

 private:
  TemporaryFolder folder_;
};

inline Instant dayAndSecond(int day, int second = 0) {
  return std::chrono::sys_days{std::chrono::year{2026} / 3 / 1} + std::chrono::days{day} +
         std::chrono::seconds{second};
}

/// A test of a service over a library, and of what the services have around them.
class LibraryServiceTest : public testing::Test {
 protected:
  LibraryFolder folder_;
  FakeClock clock_{dayAndSecond(20)};
  ScriptedHttpClient http_;
  MemorySettings settings_;
  std::unique_ptr<DataStore> store_ = folder_.open();
  QObject context_;
};

inline WatchedApp watched(std::int64_t trackId, std::string country = "us") {
  return {.trackId = trackId,
          .country = std::move(country),
          .platformRaw = "mac",
          .name = "Paperfold " + std::to_string(trackId),
          .priceWhenAdded = 4.99,
          .currentPrice = 4.99,
          .addedAt = dayAndSecond(static_cast<int>(trackId))};
}

inline OwnedApp owned(std::int64_t trackId, std::string name = "Inkwell") {
  return {.trackId = trackId, .country = "us", .name = std::move(name), .sourceRaw = "scanned"};
}

inline CollectionEntry entry(std::int64_t trackId, std::string note = "") {
  return {.trackId = trackId,
          .country = "us",
          .note = std::move(note),
          .addedAt = dayAndSecond(static_cast<int>(trackId))};
}

inline CachedApp cached(std::int64_t trackId, std::string name = "Inkwell") {
  return {.trackId = trackId, .country = "us", .name = std::move(name)};
}

}  // namespace quillet
