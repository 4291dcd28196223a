// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "cli/limit_remark.h"

#include <gtest/gtest.h>

namespace quillet {
namespace {

TEST(LimitRemark, SaysHowToSeeMore) {
  const std::pair<CutList, std::string_view> rows[] = {
      {{.limit = 25}, "more match; -n 200 shows up to 200."},
      {{.limit = 3, .longest = 25}, "more match; -n 25 shows up to 25."},
      {{.limit = 200, .more = MoreMatches::perhaps},
       "more may match; 200 is the most that one list shows."},
      {{.limit = 5, .more = MoreMatches::perhaps, .sortedFrom = "the store's"},
       "only the first 5 in the store's order were sorted, and more may match; -n 200 shows up to "
       "200."},
  };
  for (const auto& [list, remark] : rows) EXPECT_EQ(limitRemark(list), remark);
}

}  // namespace
}  // namespace quillet
