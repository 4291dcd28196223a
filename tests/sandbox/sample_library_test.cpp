// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "sandbox/library/sample_library.h"

#include <gtest/gtest.h>

#include <QTemporaryDir>

#include "library/alerts.h"
#include "library/library_connection.h"
#include "library/watched_apps.h"
#include "net/run_task.h"
#include "sandbox/library/sample_pictures.h"
#include "sandbox/pictures.h"
#include "sandbox/sample_answers.h"

namespace quillet::sandbox {
namespace {

using namespace std::chrono_literals;

constexpr Instant kNoon = Instant(kSampleDay) + std::chrono::hours(12);

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
  runTask(writeSampleLibrary(&sampleStore(), place, kNoon));
  {
    LibraryConnection library(place / "default.store");
    EXPECT_GT(library.read(unreadAlertCount), 0);
    library.read(expectPricesThatAgree);
    LibraryChanges changes;
    library.change(changes, [](WriteTransaction& change) { clearAlerts(change); });
  }
  runTask(writeSampleLibrary(&sampleStore(), place, kNoon));
  EXPECT_EQ(LibraryConnection(place / "default.store").read(alerts).size(), 0U)
      << "what the user did stays";
}

TEST(SampleLibrary, LooksLivedIn) {
  const QTemporaryDir folder;
  const std::filesystem::path place = folder.path().toStdString();
  runTask(writeSampleLibrary(&sampleStore(), place, kNoon));
  SQLite::Database library((place / "default.store").string());
  const auto at = [](std::chrono::hours ago) {  // as the library counts: seconds since 2001
    return std::to_string(
        (kNoon - ago - std::chrono::sys_days(std::chrono::year(2001) / 1 / 1)).count() / 1000);
  };
  const std::tuple<const char*, std::string, std::int64_t, std::int64_t> cases[] = {
      {"watched", "ZWATCHEDAPP", 40, 40},
      {"in how many storefronts", "(SELECT DISTINCT ZCOUNTRY FROM ZWATCHEDAPP)", 3, 10},
      {"reduced", "ZWATCHEDAPP WHERE ZCURRENTPRICE < ZPRICEWHENADDED", 5, 15},
      {"risen", "ZWATCHEDAPP WHERE ZCURRENTPRICE > ZPRICEWHENADDED", 1, 10},
      {"with a target", "ZWATCHEDAPP WHERE ZTARGETPRICE IS NOT NULL", 2, 15},
      {"no longer sold", "ZWATCHEDAPP WHERE ZISUNAVAILABLE", 1, 3},
      {"alerts", "ZALERTRECORD", 12, 20},
      {"kinds of alerts", "(SELECT DISTINCT ZKINDRAW FROM ZALERTRECORD)", 6, 6},
      {"unread", "ZALERTRECORD WHERE NOT ZISREAD", 3, 3},
      {"alerts of today", "ZALERTRECORD WHERE ZDATE >= " + at(12h), 3, 5},
      {"alerts of the future", "ZALERTRECORD WHERE ZDATE > " + at(0h), 0, 0},
      {"views of today", "ZCACHEDAPP WHERE ZLASTVIEWEDAT >= " + at(12h), 3, 10},
      {"views", "ZCACHEDAPP WHERE ZLASTVIEWEDAT IS NOT NULL", 30, 40},
      {"views of the future", "ZCACHEDAPP WHERE ZLASTVIEWEDAT > " + at(0h), 0, 0},
      {"owned", "ZOWNEDAPP", 100, 120},
      {"behind", "ZOWNEDAPP WHERE ZINSTALLEDVERSION <> ZSTOREVERSION", 7, 7},
      {"rows without stars",
       "(SELECT ZTRACKID, ZCOUNTRY FROM ZWATCHEDAPP UNION ALL SELECT ZTRACKID, ZCOUNTRY FROM "
       "ZOWNEDAPP UNION ALL SELECT ZTRACKID, ZCOUNTRY FROM ZCOLLECTIONENTRY) r WHERE NOT EXISTS "
       "(SELECT 1 FROM ZCACHEDAPP c WHERE c.ZTRACKID = r.ZTRACKID AND c.ZCOUNTRY = r.ZCOUNTRY "
       "AND c.ZRATING IS NOT NULL)",
       1, 40},
      {"collections", "ZAPPCOLLECTION", 5, 5},
      {"notes", "ZCOLLECTIONENTRY WHERE ZNOTE <> ''", 5, 30},
      {"saved searches", "ZSAVEDSEARCH", 5, 5},
  };
  for (const auto& [what, rows, least, most] : cases) {
    const std::int64_t count = countOf(library, rows);
    EXPECT_TRUE(least <= count && count <= most) << what << ": " << count;
  }
}

TEST(SampleLibrary, PicturesLeadToWhereTheStoreServesNow) {
  const QTemporaryDir folder;
  const std::filesystem::path place = folder.path().toStdString();
  runTask(writeSampleLibrary(&sampleStore(), place, kNoon));
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
  // As addresses were before pictures were drawn: they do not tell which picture they are of.
  SQLite::Database((place / "default.store").string(), SQLite::OPEN_READWRITE)
      .exec(
          "UPDATE ZWATCHEDAPP SET ZARTWORKURL = 'https://is3-ssl.quillet-pictures.example/image/"
          "thumb/Purple124/v4/ab/cd/ef/abcdef01-2345-6789-abcd-0123456789ab/source/512x512bb.jpg'");
  leadPicturesTo(place, "http://127.0.0.1:9090");
  {
    SQLite::Database library((place / "default.store").string());
    for (const WatchedApp& row : watchedApps(library))
      EXPECT_EQ(row.artworkUrl,
                pictureUrl("http://127.0.0.1:9090", {row.trackId}, "512x512bb.jpg"));
  }
  SQLite::Database((place / "default.store").string(), SQLite::OPEN_READWRITE)
      .exec("UPDATE ZWATCHEDAPP SET ZARTWORKURL = 'https://other.example/image/thumb/a.jpg'");
  leadPicturesTo(place, "http://127.0.0.1:8080");
  EXPECT_EQ(count("ZWATCHEDAPP WHERE ZARTWORKURL NOT LIKE 'https://other.example/%'"), 0);
  leadPicturesTo(place / "none", "http://127.0.0.1:8080");
}

}  // namespace
}  // namespace quillet::sandbox
