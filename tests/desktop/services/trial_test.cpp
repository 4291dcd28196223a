// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/services/trial.h"

#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdlib>
#include <stdexcept>
#include <thread>

#include "support/temporary_folder.h"
#include "system/file_lock.h"

namespace quillet {
namespace {

using namespace std::chrono_literals;

TEST(Trial, TellsWhetherAFunctionEnds) {
  struct Row {
    const char* what;
    bool (*attempt)();
    std::chrono::milliseconds patience;
    TrialState state;
  };
  for (const Row& row : {
           Row{"true", [] { return true; }, 10s, TrialState::passed},
           Row{"false", [] { return false; }, 10s, TrialState::failed},
           Row{"throws", []() -> bool { throw std::runtime_error("x"); }, 10s, TrialState::failed},
           Row{"crashes", []() -> bool { std::abort(); }, 10s, TrialState::failed},
           Row{"hangs", [] { return ::pause() == 0; }, 10ms, TrialState::running},
       }) {
    Trial trial(row.attempt);
    EXPECT_EQ(trial.state(row.patience), row.state) << row.what;
    EXPECT_EQ(trial.state(0ms), row.state) << row.what;
    const bool isThere = ::waitpid(-1, nullptr, WNOHANG) >= 0;
    EXPECT_EQ(isThere, row.state == TrialState::running) << row.what << ": once told, it is gone";
  }
}

TEST(Trial, OneThatHangsHoldsNoLockOfItsParent) {
  const TemporaryFolder folder;
  const auto tryLock = [&] {
    Descriptor opened = openLockFile(folder.path() / "lock");
    return FileLock::tryTake(opened);
  };
  auto lock = tryLock();
  const Trial trial([] { return ::pause() == 0; });
  EXPECT_FALSE(tryLock()) << "held by the test";
  lock.reset();
  // The other process closes what it was given at its very beginning.
  while (!tryLock()) std::this_thread::yield();
}

}  // namespace
}  // namespace quillet
