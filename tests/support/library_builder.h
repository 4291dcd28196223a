// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <gtest/gtest.h>
#include <sqlite3.h>

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "library/schema/entities.h"
#include "library/schema/table_sql.h"
#include "support/map_environment.h"
#include "support/temporary_folder.h"

namespace quillet {

/// The tables as the data store makes them, without the rules that keep odd rows out: readers must
/// bear those too.
inline std::string libraryTables() {
  constexpr int kRevision = 2;  // the last one before columns of our own were added
  constexpr std::string_view kRule = " NOT NULL";
  std::string sql;
  for (int revision = 1; revision <= kRevision; ++revision) {
    for (std::string statement : revisionSql(allTables(), revision)) {
      if (statement.starts_with("CREATE UNIQUE")) continue;
      for (auto at = statement.find(kRule); at != std::string::npos; at = statement.find(kRule))
        statement.erase(at, kRule.size());
      sql += statement + ";\n";
    }
  }
  return sql;
}

/// A connection that writes, as the desktop application's does.
class LibraryWriter {
 public:
  explicit LibraryWriter(const std::filesystem::path& file) {
    sqlite3_open(file.c_str(), &handle_);
    run("PRAGMA journal_mode=WAL");
  }
  ~LibraryWriter() { sqlite3_close(handle_); }
  LibraryWriter(const LibraryWriter&) = delete;
  LibraryWriter& operator=(const LibraryWriter&) = delete;

  void run(const std::string& sql) {
    EXPECT_EQ(sqlite3_exec(handle_, sql.c_str(), nullptr, nullptr, nullptr), SQLITE_OK)
        << sqlite3_errmsg(handle_);
  }

 private:
  sqlite3* handle_ = nullptr;
};

/// A test with a data folder and a temporary folder of its own.
class LibraryTest : public testing::Test {
 protected:
  void SetUp() override {
    data = folder / "da ta%3f#1?";
    temporary = folder / "tmp" / "deep";
    std::filesystem::create_directories(data);
    database = data / "default.store";
    environment.set("QUILLET_DATA_DIR", data.string());
    environment.set("TMPDIR", temporary.string());
  }

  void TearDown() override {
    std::filesystem::permissions(data, std::filesystem::perms::owner_all);
  }

  /// Makes the database, with all tables, and closes it: no companions are left.
  void makeLibrary(const std::string& rows = "") const {
    LibraryWriter(database).run(libraryTables() + rows);
  }

  /// What scratch copies are left.
  [[nodiscard]] std::size_t leftovers() const {
    if (!std::filesystem::exists(temporary)) return 0;
    return static_cast<std::size_t>(
        std::distance(std::filesystem::directory_iterator(temporary), {}));
  }

  const TemporaryFolder own;
  std::filesystem::path folder = own.path();
  std::filesystem::path data;
  std::filesystem::path temporary;
  std::filesystem::path database;
  MapEnvironment environment;
};

}  // namespace quillet
