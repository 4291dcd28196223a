// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "system/file_lock.h"

#include <gtest/gtest.h>

#include <future>
#include <system_error>

#include "support/temporary_folder.h"

namespace quillet {
namespace {

TEST(FileLock, IsOneHoldersAtATime) {
  const TemporaryFolder folder;
  const auto file = folder.path() / "lock";
  auto lock = FileLock::tryTake(openLockFile(file));
  ASSERT_TRUE(lock);
  EXPECT_FALSE(FileLock::tryTake(openLockFile(file)));
  auto next = std::async(std::launch::async, [&] { return FileLock::take(openLockFile(file)); });
  std::optional<FileLock> moved = std::move(lock);
  EXPECT_FALSE(FileLock::tryTake(openLockFile(file))) << "whoever has it now";
  moved.reset();
  EXPECT_TRUE(next.get().file().isOpen());
  EXPECT_TRUE(FileLock::tryTake(openLockFile(file)));
  EXPECT_THROW((void)openLockFile(folder.path() / "no such folder" / "lock"), std::system_error);
}

}  // namespace
}  // namespace quillet
