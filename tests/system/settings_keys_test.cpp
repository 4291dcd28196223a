// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "system/settings_keys.h"

#include <gtest/gtest.h>

#include "support/memory_settings.h"

namespace quillet {
namespace {

TEST(SettingsKeys, WholeNumbersAreClampedAndUnreadableOnesTakeTheDefault) {
  const std::pair<const char*, std::int64_t> cases[] = {
      {"", 12}, {"0", 12}, {"1", 2}, {"120", 119}, {"7.5", 12}, {"99999999999999999999", 12},
  };
  for (const auto& [stored, expected] : cases) {
    const MemorySettings settings({{"maintenanceStaleAfterMonths", stored}});
    EXPECT_EQ(readSetting(settings, kStaleAfterMonths), expected) << stored;
  }
  EXPECT_EQ(readSetting(MemorySettings(), kStaleAfterMonths), 12);
}

TEST(SettingsKeys, FlagsReadBothSpellings) {
  const std::pair<const char*, bool> cases[] = {
      {"true", true}, {"1", true}, {"false", false}, {"False", false}, {"0", false}, {"no!", true},
  };
  for (const auto& [stored, expected] : cases) {
    const MemorySettings settings({{"showMaintenanceRating", stored}});
    EXPECT_EQ(readSetting(settings, kShowMaintenanceRating), expected) << stored;
  }
}

}  // namespace
}  // namespace quillet
