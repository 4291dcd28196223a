// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "system/file_lock.h"

#include <gtest/gtest.h>

#include <optional>
#include <system_error>

#include "support/temporary_folder.h"

namespace quillet {
namespace {

TEST(FileLock, IsOneHoldersAtATime) {
  const TemporaryFolder folder;
  const auto file = folder.path() / "lock";
  const auto tryLock = [&] {
    Descriptor opened = openLockFile(file);
    return FileLock::tryTake(opened);
  };
  auto lock = tryLock();
  ASSERT_TRUE(lock);
  EXPECT_FALSE(tryLock());
  std::optional<FileLock> moved = std::move(lock);
  EXPECT_FALSE(tryLock()) << "whoever has it now";
  moved.reset();
  EXPECT_TRUE(tryLock());
  EXPECT_THROW((void)openLockFile(folder.path() / "no such folder" / "lock"), std::system_error);
}

}  // namespace
}  // namespace quillet
