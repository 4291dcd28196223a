// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/services/library_gateway.h"

#include <gtest/gtest.h>

#include <QSignalSpy>

#include "library/library_connection.h"
#include "library/library_folder.h"
#include "library/watched_apps.h"
#include "support/event_loop.h"

namespace quillet {
namespace {

TEST(LibraryGatewayTest, AnswersWhatWasAskedBeforeTheLibraryWasOpen) {
  const LibraryFolder folder;
  LibraryGateway gateway;
  Task<std::vector<WatchedApp>> first = gateway.read(watchedApps);
  Task<std::vector<WatchedApp>> second = gateway.read(watchedApps);
  auto store = folder.open();
  runTask(store->change(watchApps, std::vector{watched(7)}));
  gateway.use(*store);
  EXPECT_EQ(runTask(std::move(first)).size(), 1);
  EXPECT_EQ(runTask(std::move(second)).size(), 1);
}

TEST(LibraryGatewayTest, TellsOwnChangesByKeyAndThoseOfOthersAtAll) {
  const LibraryFolder folder;
  auto store = folder.open();
  LibraryGateway gateway;
  gateway.use(*store);
  gateway.watch(folder.file());
  QSignalSpy own(&gateway, &LibraryGateway::changed);
  QSignalSpy others(&gateway, &LibraryGateway::changedElsewhere);
  runTask(gateway.read(watchedApps));  // the version was read before this
  runTask(store->change(watchApps, std::vector{watched(7)}));
  EXPECT_EQ(own.count(), 1);
  SQLite::Database other(folder.file().string(), SQLite::OPEN_READWRITE);
  other.exec("UPDATE ZWATCHEDAPP SET ZCURRENTPRICE = 1");
  EXPECT_TRUE(others.wait());
  EXPECT_EQ(others.count(), 1);
  EXPECT_EQ(own.count(), 1);
}

}  // namespace
}  // namespace quillet
