// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "cli/dispatcher.h"

#include <gtest/gtest.h>

#include "support/collected_streams.h"
#include "support/words.h"

namespace quillet {
namespace {

class DispatcherTest : public testing::Test {
 protected:
  Dispatch run(const Words& words) {
    io = {};
    return dispatch(words, [] { return std::string("us"); }, {"1.4", "57"}, io.streams());
  }

  /// What `words` print on standard output; they must end there with status 0.
  std::string printed(const Words& words) {
    EXPECT_EQ(std::get<ExitStatus>(run(words)), ExitStatus::ok);
    EXPECT_EQ(io.err.content, "");
    return io.out.content;
  }

  /// What `words` say on standard error; they must end there as bad usage.
  std::string refused(const Words& words) {
    EXPECT_EQ(std::get<ExitStatus>(run(words)), ExitStatus::badUsage);
    EXPECT_EQ(io.err.writes, 1);
    EXPECT_EQ(io.out.content, "");
    return io.err.content;
  }

  CollectedStreams io;
};

TEST_F(DispatcherTest, TellsCommandsFromTheDesktop) {
  for (const Words& words : std::vector<Words>{
           {}, {"-psn_0_12345"}, {"--json", "search", "x"}, {"--background"}, {"-"}, {"-H"}}) {
    EXPECT_TRUE(std::holds_alternative<StartDesktop>(run(words)));
    EXPECT_EQ(io.out.content + io.err.content, "");
  }
  const auto invocation = std::get<CommandInvocation>(run("my-apps --outdated --agent"));
  EXPECT_EQ(invocation.command->word, "my-apps");
  EXPECT_EQ(invocation.form, OutputForm::json);
  EXPECT_TRUE(invocation.options.outdatedOnly);
}

TEST_F(DispatcherTest, RefusesWhatItDoesNotKnow) {
  EXPECT_EQ(refused({"a\x1B[31m\nb", "--json"}),
            "quillet: unknown command 'a[31m b'.\n"
            "Run 'quillet help' for the commands that exist.\n");
  EXPECT_EQ(refused("search --frobnicate"),
            "quillet: Unknown option '--frobnicate'.\n  try: quillet help\n");
  EXPECT_TRUE(refused("search --genre --agent -n 0")
                  .starts_with("{\n  \"error\": {\n    \"code\": \"VALIDATION\",\n    \"message\": "
                               "\"Limit must be a whole number from 1 to 200; got '0'.\""));
}

TEST_F(DispatcherTest, ReadsALinkForTheIdInIt) {
  const std::string page = "https://apps.apple.com/us/app/id-card-notes/id1480068668";
  const std::pair<Words, Words> rows[] = {
      {{"info", page + "?mt=12&l=en"}, {"1480068668"}},
      {{"compare", page, " apps.apple.com/app/id11#x ", "12"}, {"1480068668", "11", "12"}},
      {{"versions", "itms-apps://itunes.apple.com/app/id42?mt=8"}, {"42"}},
      // No app's page, and no command that takes an ID.
      {{"info", "https://apps.apple.com/us/developer/idle/x1"},
       {"https://apps.apple.com/us/developer/idle/x1"}},
      {{"info", "https://elsewhere.example/app/id42"}, {"https://elsewhere.example/app/id42"}},
      {{"search", page}, {page}},
  };
  for (const auto& [words, operands] : rows) {
    EXPECT_EQ(std::get<CommandInvocation>(run(words)).options.operands, operands);
  }
}

TEST_F(DispatcherTest, NamesTheOptionsThatACommandIgnores) {
  const std::pair<Words, std::vector<std::string>> rows[] = {
      {"watchlist -c de -n 5 --country fr", {"watchlist ignores --country."}},
      {"deals --genre Games --paid", {"deals ignores --genre.", "deals ignores --paid."}},
      {"my-apps --retry 1 --json", {"my-apps ignores --retry."}},
      {"search x --genre Games --json --no-retry", {}},
  };
  for (const auto& [words, remarks] : rows) {
    EXPECT_EQ(ignoredRemarks(std::get<CommandInvocation>(run(words))), remarks);
  }
}

TEST_F(DispatcherTest, ChoosesTheHelpByItsWord) {
  const std::string main = printed("--help");
  EXPECT_TRUE(main.starts_with("quillet 1.4 (build 57)\n\nApp Store data on the command line:"));
  for (const char* words : {"-h", "help", "help nosuchword", "--help search"}) {
    EXPECT_EQ(printed(words), main);
  }
  EXPECT_NE(main.find("\n  compare <id> <id> …           Side by side, with cost per year\n"),
            std::string::npos);
  const std::pair<const char*, std::string_view> rows[] = {
      {"help deals surplus", "Prices, from Quillet's own daily record."},
      {"search --frobnicate -h", "Search the App Store."},
      {"help saved-searches", "Your own lists, read from Quillet's database."},
  };
  for (const auto& [words, start] : rows) EXPECT_TRUE(printed(words).starts_with(start)) << start;
}

TEST_F(DispatcherTest, WrapsTheCategoriesInTheHelp) {
  EXPECT_NE(printed("help charts").find(R"( A category chart, by name or ID:
                                    Books, Business, Developer Tools,
                                    Education, Entertainment, Finance,
)"),
            std::string::npos);
}

TEST_F(DispatcherTest, PrintsTheVersionEvenWhenTheBuildDoesNotKnowIt) {
  EXPECT_EQ(printed("-v"), "quillet 1.4 (build 57)\n");
  EXPECT_EQ(printed("--version x"), "quillet 1.4 (build 57)\n");
  EXPECT_EQ(versionText({}), "quillet unknown (build ?)");
}

}  // namespace
}  // namespace quillet
