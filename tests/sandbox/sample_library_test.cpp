// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "sandbox/library/sample_library.h"

#include <gtest/gtest.h>

#include <QTemporaryDir>

#include "library/alerts.h"
#include "library/library_connection.h"
#include "net/run_task.h"
#include "sandbox/library/sample_pictures.h"
#include "sandbox/sample_answers.h"

namespace quillet::sandbox {
namespace {

std::int64_t countOf(SQLite::Database& database, const std::string& what) {
  return database.execAndGet("SELECT count(*) FROM " + what).getInt64();
}

/// The last point of an app is its price.
void expectPricesThatAgree(SQLite::Database& database) {
  EXPECT_EQ(countOf(database,
                    "ZWATCHEDAPP w WHERE abs(w.ZCURRENTPRICE - (SELECT p.ZPRICE FROM "
                    "ZPRICEPOINT p WHERE p.ZTRACKID = w.ZTRACKID AND p.ZCOUNTRY = "
                    "w.ZCOUNTRY ORDER BY p.ZDATE DESC LIMIT 1)) > 0.001"),
            0);
  EXPECT_EQ(countOf(database,
                    "ZPRICEPOINT p JOIN ZWATCHEDAPP w USING (ZTRACKID, ZCOUNTRY) WHERE "
                    "p.ZDATE < w.ZADDEDAT - 1"),
            0);
}

TEST(SampleLibrary, IsConsistentAndWrittenOnce) {
  const QTemporaryDir folder;
  const std::filesystem::path place = folder.filePath(QStringLiteral("a/b")).toStdString();
  runTask(writeSampleLibrary(&sampleStore(), place));
  {
    LibraryConnection library(place / "default.store");
    EXPECT_GT(library.read(unreadAlertCount), 0);
    library.read(expectPricesThatAgree);
    LibraryChanges changes;
    library.change(changes, [](WriteTransaction& change) { clearAlerts(change); });
  }
  runTask(writeSampleLibrary(&sampleStore(), place));
  EXPECT_EQ(LibraryConnection(place / "default.store").read(alerts).size(), 0U)
      << "what the user did stays";
}

TEST(SampleLibrary, PicturesLeadToWhereTheStoreServesNow) {
  const QTemporaryDir folder;
  const std::filesystem::path place = folder.path().toStdString();
  runTask(writeSampleLibrary(&sampleStore(), place));
  const auto count = [&](const std::string& what) {
    SQLite::Database library((place / "default.store").string());
    return countOf(library, what);
  };
  const auto elsewhere = [&](const std::string& host) {
    std::int64_t rows = 0;
    for (const auto& [table, column] :
         {std::pair("ZWATCHEDAPP", "ZARTWORKURL"), std::pair("ZOWNEDAPP", "ZARTWORKURL"),
          std::pair("ZCOLLECTIONENTRY", "ZARTWORKURL"), std::pair("ZALERTRECORD", "ZARTWORKURL"),
          std::pair("ZCACHEDAPP", "ZARTWORKURL512"), std::pair("ZCACHEDAPP", "ZSCREENSHOTURLS")})
      rows += count(fmt::format("{0} WHERE instr({1}, '/image/') AND NOT instr({1}, '{2}/image/')",
                                table, column, host));
    return rows;
  };
  for (const std::string host : {"http://127.0.0.1:8080", "http://127.0.0.1:9090"}) {
    EXPECT_GT(elsewhere(host), 400);
    leadPicturesTo(place, host);
    EXPECT_EQ(elsewhere(host), 0);
  }
  {
    const LibraryConnection application(place / "default.store");
    leadPicturesTo(place, "http://127.0.0.1:8080");
  }
  EXPECT_EQ(elsewhere("http://127.0.0.1:9090"), 0) << "an application has it open";
  SQLite::Database((place / "default.store").string(), SQLite::OPEN_READWRITE)
      .exec("UPDATE ZWATCHEDAPP SET ZARTWORKURL = 'https://other.example/image/thumb/a.jpg'");
  leadPicturesTo(place, "http://127.0.0.1:8080");
  EXPECT_EQ(count("ZWATCHEDAPP WHERE ZARTWORKURL NOT LIKE 'https://other.example/%'"), 0);
  leadPicturesTo(place / "none", "http://127.0.0.1:8080");
}

}  // namespace
}  // namespace quillet::sandbox
