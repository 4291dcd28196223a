// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "cli/dispatcher.h"

#include <gtest/gtest.h>

#include "support/collected_streams.h"

namespace quillet {
namespace {

using Words = std::vector<std::string>;

class DispatcherTest : public testing::Test {
 protected:
  Dispatch run(const Words& words) {
    io = {};
    return dispatch(words, [] { return std::string("us"); }, {"1.4", "57"}, io.streams());
  }

  /// What `words` print on standard output; they must end there with status 0.
  std::string printed(const Words& words) {
    const Dispatch decision = run(words);
    EXPECT_EQ(std::get<ExitStatus>(decision), ExitStatus::ok);
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
  const auto invocation = std::get<CommandInvocation>(run({"my-apps", "--outdated", "--agent"}));
  EXPECT_EQ(invocation.command->word, "my-apps");
  EXPECT_EQ(invocation.form, OutputForm::json);
  EXPECT_TRUE(invocation.options.outdatedOnly);
}

TEST_F(DispatcherTest, RefusesWhatItDoesNotKnow) {
  const std::string unknown =
      "quillet: unknown command 'frobnicate'.\nRun 'quillet help' for the commands that exist.\n";
  EXPECT_EQ(refused({"frobnicate"}), unknown);
  EXPECT_EQ(refused({"frobnicate", "--json"}), unknown);
  EXPECT_TRUE(refused({"a\x1B[31m\nb"}).starts_with("quillet: unknown command 'a[31m b'."));
  EXPECT_EQ(refused({"search", "--frobnicate"}),
            "quillet: Unknown option '--frobnicate'.\n  try: quillet help\n");
  EXPECT_EQ(refused({"search", "--genre", "--agent", "-n", "0"}), R"({
  "error": {
    "code": "VALIDATION",
    "message": "Limit must be a whole number from 1 to 200; got '0'.",
    "suggestions": []
  }
}
)");
}

TEST_F(DispatcherTest, ChoosesTheHelpByItsWord) {
  const std::string main = printed({"--help"});
  EXPECT_TRUE(main.starts_with("quillet 1.4 (build 57)\n\nApp Store data on the command line:"));
  for (const Words& words : std::vector<Words>{
           {"-h"}, {"help"}, {"help", "nosuchword"}, {"help", "help"}, {"--help", "search"}}) {
    EXPECT_EQ(printed(words), main);
  }
  for (const std::string_view lines :
       {"\n\nCOMMANDS:\n  search <term>                 Search the App Store\n",
        "\n  compare <id> <id> …           Side by side, with cost per year\n",
        "\n  screenshots <track-id>        Links to the original screenshots\n"
        "  help [command]                This help\n\nGLOBAL OPTIONS:\n"}) {
    EXPECT_NE(main.find(lines), std::string::npos) << lines;
  }
  const std::pair<Words, std::string_view> rows[] = {
      {{"help", "deals", "surplus"}, "Prices, from Quillet's own daily record."},
      {{"deals", "-h", "--limit", "abc"}, "Prices, from Quillet's own daily record."},
      {{"search", "--frobnicate", "--help"}, "Search the App Store."},
      {{"info", "--help"}, "Everything the store knows about one app"},
      {{"help", "saved-searches"}, "Your own lists, read from Quillet's database."},
      {{"help", "reviews"}, "Customer reviews, with the developer's replies."},
      {{"help", "screenshots"}, "Links to an app's screenshots"},
      {{"help", "versions"}, "Top charts, where an app has ranked"},
      {{"help", "purchase-history"}, "In-app purchase and subscription prices"},
  };
  for (const auto& [words, start] : rows) EXPECT_TRUE(printed(words).starts_with(start)) << start;
}

TEST_F(DispatcherTest, AssemblesTheHelpOfPricesAndCharts) {
  EXPECT_NE(
      printed({"help", "deals"})
          .find("across\nten storefronts: us, gb, de, fr, ca, au, jp, it, es, nl.\n\nUSAGE:\n"),
      std::string::npos);
  EXPECT_NE(printed({"help", "charts"}).find(R"( A category chart, by name or ID:
                                    Books, Business, Developer Tools,
                                    Education, Entertainment, Finance,
                                    Food & Drink, Games, Graphics &
                                    Design, Health & Fitness, Lifestyle,
                                    Magazines & Newspapers, Medical,
                                    Music, Navigation, News, Photo &
                                    Video, Productivity, Reference,
                                    Shopping, Social Networking, Sports,
                                    Travel, Utilities, Weather
  -p, --platform <mac|iphone|ipad>  (default: mac)
)"),
            std::string::npos);
}

TEST_F(DispatcherTest, PrintsTheVersionEvenWhenTheBuildDoesNotKnowIt) {
  EXPECT_EQ(printed({"-v"}), "quillet 1.4 (build 57)\n");
  EXPECT_EQ(printed({"--version", "x"}), "quillet 1.4 (build 57)\n");
  EXPECT_EQ(versionText({}), "quillet unknown (build ?)");
}

}  // namespace
}  // namespace quillet
