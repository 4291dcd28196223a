// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "sandbox/options.h"

#include <gtest/gtest.h>

#include <sstream>

#include "sample_answers.h"

namespace quillet::sandbox {
namespace {

Options parsed(const std::vector<std::string>& arguments) {
  return parseOptions(arguments, kSampleDay);
}

TEST(Options, areRead) {
  const Options given = parsed({"--apps", "70", "--seed", "9", "--today", "2025-02-28", "--fault",
                                "drop", "--fault", "path=/lookup empty", "--log", "--no-pictures",
                                "--port", "8080", "--", "sh", "--port", "x"});
  EXPECT_EQ(given.store.apps, 70U);
  EXPECT_EQ(given.store.seed, 9U);
  EXPECT_EQ(given.store.today, std::chrono::sys_days(std::chrono::year(2025) / 2 / 28));
  EXPECT_EQ(given.faults.size(), 2U);
  EXPECT_TRUE(given.isLogging);
  EXPECT_FALSE(given.hasPictures);
  EXPECT_EQ(given.port, 8080);
  EXPECT_EQ(given.command, (std::vector<std::string>{"sh", "--port", "x"}));
  EXPECT_EQ(given.answer, "");
  EXPECT_EQ(parsed({"-h"}).answer, helpText());
  EXPECT_TRUE(parsed({"--version"}).answer.starts_with("quillet-sandbox "));
}

TEST(Options, badOnesAreRefused) {
  for (const char* line : {"--apps", "--apps -1", "--port 65536", "--today today",
                           "--today 2026-02-30", "--fault x", "--what", "serve", "--"}) {
    std::istringstream words(line);
    const std::vector<std::string> arguments(std::istream_iterator<std::string>(words), {});
    EXPECT_THROW((void)parsed(arguments), BadUsage) << line;
  }
}

}  // namespace
}  // namespace quillet::sandbox
