// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "sandbox/library/sample_library.h"

#include <gtest/gtest.h>

#include <QTemporaryDir>

#include "library/alerts.h"
#include "library/collections.h"
#include "library/library_connection.h"
#include "library/owned_apps.h"
#include "library/recorded_history.h"
#include "library/saved_searches.h"
#include "library/watched_apps.h"
#include "net/run_task.h"
#include "sandbox/sample_answers.h"

namespace quillet::sandbox {
namespace {

std::int64_t countOf(SQLite::Database& database, const std::string& what) {
  return database.execAndGet("SELECT count(*) FROM " + what).getInt64();
}

/// What every listing needs to have something to show.
void expectAFullLife(SQLite::Database& database) {
  EXPECT_EQ(watchedApps(database).size(), 40U);
  EXPECT_EQ(ownedApps(database).size(), 120U);
  EXPECT_EQ(collections(database).size(), 5U);
  EXPECT_GE(savedSearches(database).size(), 12U);
  EXPECT_GT(unreadAlertCount(database), 0);
  EXPECT_EQ(countOf(database, "ZCHARTSNAPSHOT"), 60 * 6);
  for (const char* some :
       {"ZWATCHEDAPP WHERE ZCURRENTPRICE < ZPRICEWHENADDED - 0.001",
        "ZWATCHEDAPP WHERE ZISUNAVAILABLE", "ZWATCHEDAPP WHERE ZTARGETPRICE IS NOT NULL",
        "ZOWNEDAPP WHERE ZINSTALLEDVERSION <> ZSTOREVERSION", "ZCOLLECTIONENTRY WHERE ZNOTE <> ''",
        "(SELECT 1 FROM ZPURCHASEPRICEPOINT GROUP BY ZTRACKID, ZKEY HAVING count(*) > 1)",
        "ZRANKPOINT", "ZCACHEDAPP WHERE ZLASTVIEWEDAT IS NOT NULL"}) {
    EXPECT_GT(countOf(database, some), 0) << some;
  }
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

TEST(SampleLibrary, IsAFullAndConsistentLifeAndIsWrittenOnce) {
  const QTemporaryDir folder;
  const std::filesystem::path place = folder.filePath(QStringLiteral("a/b")).toStdString();
  runTask(writeSampleLibrary(&sampleStore(), place));
  {
    LibraryConnection library(place / "default.store");
    library.read(expectAFullLife);
    library.read(expectPricesThatAgree);
    LibraryChanges changes;
    library.change(changes, [](WriteTransaction& change) { clearAlerts(change); });
  }
  runTask(writeSampleLibrary(&sampleStore(), place));
  EXPECT_EQ(LibraryConnection(place / "default.store").read(alerts).size(), 0U)
      << "what the user did stays";
}

}  // namespace
}  // namespace quillet::sandbox
