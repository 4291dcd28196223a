// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "collector/options.h"

#include <gtest/gtest.h>

#include "support/message_of.h"

namespace quillet {
namespace {

using Words = std::vector<std::string>;

TEST(CollectorOptions, SayWhatIsWrong) {
  for (const auto& [words, message] : std::vector<std::pair<Words, const char*>>{
           {{}, "There is no command."},
           {{"colect"}, "Unknown command 'colect'."},
           {{"collect"}, "collect takes one or more of --ids, --charts, --search and --recorded."},
           {{"collect", "--chart"}, "Unknown option '--chart'."},
           {{"collect", "--ids"}, "--ids takes a value."},
           {{"collect", "here"}, "Unexpected argument 'here'."},
           {{"publish", "a", "b"}, "Unexpected argument 'b'."},
           {{"collect", "--search", " "}, "--search takes words to search for."},
           {{"collect", "--charts", "--storefronts", "us,se"},
            "'se' is no tracked storefront. Tracked storefronts: us, gb, de, fr, ca, au, jp, it, "
            "es, nl."},
           {{"collect", "--charts", "--requests-per-minute", "0"},
            "--requests-per-minute takes a number from 1 to 100000."},
           {{"publish", "--charts"}, "publish takes no --charts."},
           {{"backup"}, "backup takes a FILE."},
           {{"restore", "a", "b"}, "Unexpected argument 'b'."},
           {{"forget", "7x"}, "'7x' is no track ID."},
           {{"forget", "--price-of", "2026-11-21"},
            "forget takes the ID of an app, with or without --price-of, or --before."},
           {{"forget", "7", "--before", "2026-11-21"},
            "forget takes the ID of an app, with or without --price-of, or --before."},
           {{"forget", "7", "--price-of", "yesterday"},
            "--price-of takes a day like 2026-11-21, or a time like 2026-11-21T03:00:00Z."},
           {{"collect", "--charts", "--every", "1d"}, "--every takes a number from 1 to 8760."},
           {{"collect", "--charts", "--as-of", "2026-02-30"},
            "--as-of takes a day or a time like 2026-11-21 or 2026-11-21T03:00:00Z."},
       }) {
    EXPECT_EQ(messageOf<BadUsage>([&] { (void)parseCollectorOptions(words); }), message);
  }
}

TEST(CollectorOptions, AddUpSources) {
  const Words words{"collect",      "--charts",      "--search",  "notes",   "--search",
                    "photo editor", "--storefronts", "JP, us,jp", "--as-of", "2026-11-21"};
  const CollectorOptions options = parseCollectorOptions(words);
  EXPECT_TRUE(options.wantsCharts);
  EXPECT_EQ(options.searches, (Words{"notes", "photo editor"}));
  EXPECT_EQ(options.storefronts, (Words{"jp", "us"}));
  EXPECT_EQ(options.asOf, parseInternetDate("2026-11-21T00:00:00Z"));
  EXPECT_EQ(parseCollectorOptions(Words{"publish"}).storefronts.size(), 10U);
}

TEST(CollectorOptions, AskForHelpAndVersionAnywhere) {
  const auto command = [](const Words& words) { return parseCollectorOptions(words).command; };
  EXPECT_EQ(command({"-h"}), CollectorCommand::help);
  EXPECT_EQ(command({"publish", "--help"}), CollectorCommand::help);
  EXPECT_EQ(command({"collect", "--help", "--charts"}), CollectorCommand::help);
  EXPECT_EQ(command({"--version"}), CollectorCommand::version);
}

}  // namespace
}  // namespace quillet
