// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "cli/command_line_options.h"

#include <gtest/gtest.h>

#include "analysis/search_command_line.h"
#include "cli/cli_error.h"
#include "support/words.h"

namespace quillet {
namespace {

CLIOptions parse(const Words& words) { return parseOptions(words, "us"); }

/// "CODE message|suggestion|…", or "parsed".
std::string failureOf(const Words& words) {
  try {
    (void)parse(words);
    return "parsed";
  } catch (const CLIError& error) {
    std::string text = fmt::format("{} {}", textOf(kErrorCodeTexts, error.code()), error.what());
    for (const std::string& suggestion : error.suggestions()) text += "|" + suggestion;
    return text;
  }
}

TEST(CommandLineOptions, ReadsWhatIsNoFilterIntoItsField) {
  const CLIOptions options = parse(
      "one -c GB -n +200 --agent --genre --free --chart TOP-PAID --recent --versions --stars 1 "
      "--outdated --min-drop 0.5 --retry 5 --countries DE,fr two");
  EXPECT_EQ(options.filters, AppFilters{.genre = "--free"});
  EXPECT_EQ(options.country, "gb");
  EXPECT_TRUE(options.countryIsExplicit && options.json);
  EXPECT_EQ(options.limit, 200);
  EXPECT_EQ(options.chart, ChartType::topPaid);
  EXPECT_TRUE(options.recentFirst && options.wantsVersions && options.outdatedOnly);
  EXPECT_EQ(options.stars, 1);
  EXPECT_EQ(options.minimumDrop, 0.5);
  EXPECT_EQ(options.retries, 5);
  EXPECT_EQ(options.countries, Words("de fr"));
  EXPECT_EQ(options.operands, Words("one two"));
}

TEST(CommandLineOptions, ReadsBackWhatSavedSearchesAreWrittenAs) {
  std::vector<AppFilters> searches{
      {.price = PriceFilter::free},
      {.price = PriceFilter::paid, .maxPrice = 0.1 + 0.2},
      {.minRating = 4.5, .minRatingCount = 123456789012},
      {.runsOn = OSRequirement{"14.2.1"}, .released = ReleasedWithin{18}, .hideOwned = true},
      {.released = ReleasedBefore{999}},
      {.released = ReleasedFrom{2024}},
  };
  for (const auto& row : kUpdatedFilterTexts) searches.push_back({.updatedWithin = row.value});
  for (const auto& row : kSizeFilterTexts) searches.push_back({.maxSize = row.value});
  for (const auto& row : kPurchaseFilterTexts) searches.push_back({.purchases = row.value});
  for (const auto& row : kArchitectureFilterTexts) searches.push_back({.architecture = row.value});
  for (std::size_t i = 0; i < searches.size(); ++i) {
    const auto platform = static_cast<Platform>(i % 3);
    const auto sort = static_cast<SortOrder>(i % 8);
    const std::string line = searchCommandLine(
        {.platform = platform, .country = "de", .filters = searches[i], .sort = sort});
    const CLIOptions read = parse(line);
    EXPECT_EQ(read.filters, searches[i]) << line;
    EXPECT_EQ(read.platform.value_or(Platform::mac), platform) << line;
    EXPECT_EQ(read.sort.value_or(SortOrder::relevance), sort) << line;
  }
}

TEST(CommandLineOptions, LetsTheLastOneWin) {
  const CLIOptions none = parse({});
  EXPECT_FALSE(none.countryIsExplicit || none.json || none.platform || none.sort);
  EXPECT_EQ(none.country, "us");

  const CLIOptions twice = parse("-n 5 --limit 7 --paid --free --all-countries --countries us");
  EXPECT_EQ(twice.limit, 7);
  EXPECT_EQ(twice.filters.price, PriceFilter::free);
  EXPECT_EQ(twice.countries, Words("us"));
}

TEST(CommandLineOptions, TakesRetryOptionsOutBeforeAnythingElse) {
  const CLIOptions options = parse("--retry 1 --genre --no-retry Games");
  EXPECT_EQ(options.retries, 0);
  EXPECT_EQ(options.filters.genre, "Games");
}

TEST(CommandLineOptions, RefusesWithTheMessageOfTheOption) {
  const std::string limit = "VALIDATION Limit must be a whole number from 1 to 200; got '";
  const std::pair<Words, std::string> rows[] = {
      {"-n 0", limit + "0'."},
      {"-n 201", limit + "201'."},
      {"-c GBR", "VALIDATION Country must be a two letter storefront code."},
      {"-p Mac", "VALIDATION Unknown platform 'Mac'.|-p takes mac, iphone, ipad"},
      {"--retry", "VALIDATION --retry takes a number from 0 to 5."},
      {"--frobnicate --retry 6", "VALIDATION --retry takes a number from 0 to 5."},
      {"--genre", "MISSING_REQUIRED --genre needs a value."},
      {"--sort best",
       "VALIDATION Unknown value 'best' for --sort.|--sort takes relevance, price-low, price-high, "
       "rating, popularity, updated, newest, name"},
      {"--runs-on sonoma",
       "VALIDATION Unknown value 'sonoma' for --runs-on.|--runs-on takes a version such as 14.2"},
      {"--min-rating 5.1", "VALIDATION --min-rating takes 0 to 5."},
      {"--min-rating 4,5", "VALIDATION --min-rating takes a number; got '4,5'."},
      {"--min-ratings 1.5", "VALIDATION --min-ratings takes a number; got '1.5'."},
      {"--released-within -3", "VALIDATION --released-within takes a number; got '-3'."},
      {"--released-after +202", "VALIDATION --released-after takes a four digit year; got '+202'."},
      {"--countries us,,gb",
       "VALIDATION --countries takes two letter codes separated by commas; got 'us,,gb'."},
      {"--stars 6", "VALIDATION --stars takes 1 to 5; got '6'."},
      {"- -n 0", "VALIDATION Unknown option '-'.|quillet help"},
      {"--limit=5", "VALIDATION Unknown option '--limit=5'.|--limit 5|quillet help"},
      {"-n5", "VALIDATION Unknown option '-n5'.|-n 5|quillet help"},
      {"-n=5", "VALIDATION Unknown option '-n=5'.|-n 5|quillet help"},
      {{"--genre=Food & Drink"},
       "VALIDATION Unknown option '--genre=Food & Drink'.|--genre \"Food & Drink\"|quillet help"},
      {"--free=yes", "VALIDATION Unknown option '--free=yes'.|--free|quillet help"},
      {"--=5", "VALIDATION Unknown option '--=5'.|quillet help"},
      {"-x5", "VALIDATION Unknown option '-x5'.|quillet help"},
  };
  for (const auto& [words, failure] : rows) EXPECT_EQ(failureOf(words), failure);
}

}  // namespace
}  // namespace quillet
