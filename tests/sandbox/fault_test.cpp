// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "sandbox/fault.h"

#include <gtest/gtest.h>

namespace quillet::sandbox {
namespace {

TEST(Fault, badTextsAreRefused) {
  for (const char* text :
       {"", "  ", "path=/search", "path=search drop", "status=700", "status=ok", "count=0 drop",
        "delay=-1", "truncate=", "drop garbage", "redirect=twice", "explode", "drop=1", "status"}) {
    EXPECT_THROW((void)parseFault(text), BadFault) << text;
  }
}

/// What the plan does to a row of requests: the status of each fault, 0 where there is none.
std::vector<int> struck(const std::vector<const char*>& faults,
                        const std::vector<const char*>& paths) {
  std::vector<Fault> parsed;
  for (const char* fault : faults) parsed.push_back(parseFault(fault));
  FaultPlan plan(std::move(parsed));
  std::vector<int> result;
  for (const char* path : paths)
    result.push_back(plan.next(path).value_or(Fault{}).status.value_or(0));
  return result;
}

TEST(FaultPlan, countsRequests) {
  using Statuses = std::vector<int>;
  const std::vector<const char*> four(4, "/search");
  EXPECT_EQ(struck({"status=500"}, four), Statuses(4, 500));
  EXPECT_EQ(struck({"status=500 after=2 count=1"}, four), (Statuses{0, 0, 500, 0}));
  EXPECT_EQ(struck({"status=503 count=2", "status=429 count=1"}, four),
            (Statuses{503, 503, 429, 0}));
  EXPECT_EQ(struck({"path=/lookup status=403 count=1"}, {"/search", "/lookup/x", "/lookup"}),
            (Statuses{0, 403, 0}));
}

/// The other damages are what the fault matrix lives by.
TEST(Fault, refusesAndCutsAnswers) {
  const auto damagedBy = [](const char* fault) {
    return damaged({.body = R"({"results": []})"}, parseFault(fault), "/search?term=notes");
  };
  EXPECT_EQ(damagedBy("status=403").status, 403);
  EXPECT_EQ(damagedBy("status=403").body, "");
  EXPECT_EQ(damagedBy("truncate=12").body, R"({"results": )");
  EXPECT_EQ(damagedBy("truncate=9999").body.size(), 15U);
  EXPECT_EQ(damagedBy("status=500 truncate=4").body, R"({"re)");
}

}  // namespace
}  // namespace quillet::sandbox
