// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "export/review_table.h"

#include <gtest/gtest.h>

namespace quillet {
namespace {

TEST(ReviewTable, ObeysNoTextAndLeavesOutWhatIsNotKnown) {
  const Instant day{std::chrono::sys_days{std::chrono::year{2026} / 10 / 2}};
  const AppReview hostile{"=HYPERLINK(\"http://x.example\")",
                          " \t+1\r\nsecond, line",
                          5,
                          "@sum",
                          day,
                          true,
                          "-2 \xFF",
                          day};
  EXPECT_EQ(reviewTable({{"us", "1.13", hostile}, {"de", "", {}}}),
            "Storefront,Date,Stars,Version,Title,Review,Author,Edited,Developer response,"
            "Response date\r\n"
            "us,2026-10-02T00:00:00Z,5,1.13,\"'=HYPERLINK(\"\"http://x.example\"\")\","
            "\"'+1 second, line\",'@sum,yes,'-2 \xEF\xBF\xBD,2026-10-02T00:00:00Z\r\n"
            "de,,,,,,,no,,\r\n");
}

}  // namespace
}  // namespace quillet
