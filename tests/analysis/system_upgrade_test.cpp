// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "analysis/system_upgrade.h"

#include <gtest/gtest.h>

namespace quillet {
namespace {

TEST(SystemUpgrade, SaysNoMoreThanWhatIsKnown) {
  using enum UpgradeOutlook;
  struct Row {
    const char* system;
    SystemNeeds needs;
    UpgradeOutlook outlook;
  };
  const Row rows[] = {
      {"15.2", {}, unknown},
      {"15.2", {true, {}}, unknown},
      {"15.2", {{}, "15.2"}, runs},
      {"15.2", {true, "11"}, runs},
      {"15.2", {false, "15.10"}, needsNewer},
      {"27", {true, "11"}, runs},
      {"28", {true, "11"}, stops},
      {"28.1", {true, {}}, stops},
      {"28", {false, "11"}, runs},
      {"28", {{}, "11"}, unknown},
      {"28", {{}, "29"}, needsNewer},
      {"11", {false, "10.9", true}, stopped},
  };
  for (const Row& row : rows)
    EXPECT_EQ(outlookOn(row.system, row.needs), row.outlook)
        << row.system << " " << row.needs.minimumSystem.value_or("-");
}

}  // namespace
}  // namespace quillet
