// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <gtest/gtest.h>
#include <sqlite3.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

#include "support/map_environment.h"

namespace quillet {

/// The tables that the command line reads, as the desktop application makes them.
inline constexpr const char* kLibraryTables = R"(
CREATE TABLE ZWATCHEDAPP (Z_PK INTEGER PRIMARY KEY, ZTRACKID INTEGER, ZCOUNTRY TEXT,
  ZPLATFORMRAW TEXT, ZNAME TEXT, ZSELLERNAME TEXT, ZARTWORKURL TEXT, ZTRACKVIEWURL TEXT,
  ZCURRENCY TEXT, ZPRICEWHENADDED REAL, ZCURRENTPRICE REAL, ZFORMATTEDPRICE TEXT,
  ZLASTKNOWNVERSION TEXT, ZADDEDAT REAL, ZLASTCHECKEDAT REAL, ZALERTONANYDROP INTEGER,
  ZALERTONFREE INTEGER, ZALERTONNEWVERSION INTEGER, ZALERTONPURCHASEPRICES INTEGER,
  ZTARGETPRICE REAL, ZLASTNOTIFIEDPRICE REAL, ZISUNAVAILABLE INTEGER);
CREATE TABLE ZOWNEDAPP (Z_PK INTEGER PRIMARY KEY, ZTRACKID INTEGER, ZCOUNTRY TEXT,
  ZPLATFORMRAW TEXT, ZNAME TEXT, ZSELLERNAME TEXT, ZARTWORKURL TEXT, ZBUNDLEID TEXT,
  ZTRACKVIEWURL TEXT, ZSOURCERAW TEXT, ZADDEDAT REAL, ZINSTALLEDVERSION TEXT,
  ZINSTALLEDPATH TEXT, ZLASTSCANNEDAT REAL, ZSTOREVERSION TEXT, ZPRICEWHENADDED REAL,
  ZCURRENCY TEXT, ZINSTALLEDSIZEBYTES INTEGER, ZPRIMARYGENRENAME TEXT);
CREATE TABLE ZAPPCOLLECTION (Z_PK INTEGER PRIMARY KEY, ZNAME TEXT, ZSYMBOLNAME TEXT,
  ZCREATEDAT REAL);
CREATE TABLE ZCOLLECTIONENTRY (Z_PK INTEGER PRIMARY KEY, ZTRACKID INTEGER, ZCOUNTRY TEXT,
  ZPLATFORMRAW TEXT, ZNAME TEXT, ZSELLERNAME TEXT, ZARTWORKURL TEXT, ZNOTE TEXT, ZADDEDAT REAL,
  ZCOLLECTION INTEGER);
CREATE TABLE ZSAVEDSEARCH (Z_PK INTEGER PRIMARY KEY, ZNAME TEXT, ZQUERY TEXT, ZPLATFORMRAW TEXT,
  ZCOUNTRY TEXT, ZSORTRAW TEXT, ZFILTERSJSON TEXT, ZCREATEDAT REAL, ZLASTUSEDAT REAL);
CREATE TABLE ZPURCHASEPRICEPOINT (Z_PK INTEGER PRIMARY KEY, ZTRACKID INTEGER, ZCOUNTRY TEXT,
  ZKEY TEXT, ZNAME TEXT, ZRECURRINGPERIOD TEXT, ZPRICE REAL, ZCURRENCY TEXT, ZDATE REAL);
)";

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

inline std::string contentOf(const std::filesystem::path& file) {
  std::ostringstream content;
  content << std::ifstream(file, std::ios::binary).rdbuf();
  return content.str();
}

/// A test with a data folder and a temporary folder of its own.
class LibraryTest : public testing::Test {
 protected:
  void SetUp() override {
    std::string name = (std::filesystem::temp_directory_path() / "quillet-test-XXXXXX").string();
    ASSERT_NE(mkdtemp(name.data()), nullptr);
    folder = name;
    data = folder / "da ta%3f#1?";
    temporary = folder / "tmp" / "deep";
    std::filesystem::create_directories(data);
    database = data / "default.store";
    environment.set("QUILLET_DATA_DIR", data.string());
    environment.set("TMPDIR", temporary.string());
  }

  void TearDown() override {
    std::filesystem::permissions(data, std::filesystem::perms::owner_all);
    std::filesystem::remove_all(folder);
  }

  /// Makes the database, with all tables, and closes it: no companions are left.
  void makeLibrary(const std::string& rows = "") const {
    LibraryWriter(database).run(kLibraryTables + rows);
  }

  /// What scratch copies are left.
  [[nodiscard]] std::size_t leftovers() const {
    if (!std::filesystem::exists(temporary)) return 0;
    return static_cast<std::size_t>(
        std::distance(std::filesystem::directory_iterator(temporary), {}));
  }

  std::filesystem::path folder;
  std::filesystem::path data;
  std::filesystem::path temporary;
  std::filesystem::path database;
  MapEnvironment environment;
};

}  // namespace quillet
