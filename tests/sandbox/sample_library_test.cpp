// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "sandbox/library/sample_library.h"

#include <gtest/gtest.h>

#include <QTemporaryDir>

#include "library/alerts.h"
#include "library/library_connection.h"
#include "net/run_task.h"
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

}  // namespace
}  // namespace quillet::sandbox
