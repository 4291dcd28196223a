// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "analysis/search_command_line.h"

#include <gtest/gtest.h>

#include "base/text.h"
#include "support/shell.h"

namespace quillet {
namespace {

TEST(SearchCommandLine, everyWordInItsPlace) {
  EXPECT_EQ(searchCommandLine({}), R"(quillet search "" --json)");
  const SearchRequest full{
      .query = "markdown editor",
      .platform = Platform::ipad,
      .country = "de",
      .filters = {.price = PriceFilter::paid,
                  .maxPrice = 12.5,
                  .minRating = 4,
                  .minRatingCount = 1000,
                  .updatedWithin = UpdatedFilter::month,
                  .maxSize = SizeFilter::under2GB,
                  .genre = "Developer Tools",
                  .purchases = PurchaseFilter::subscriptionOnly,
                  .runsOn = OSRequirement{"14.2"},
                  .architecture = ArchitectureFilter::needsRosetta,
                  .released = ReleasedWithin{18},
                  .hideOwned = true},
      .sort = SortOrder::priceAscending,
  };
  EXPECT_EQ(searchCommandLine(full),
            "quillet search \"markdown editor\" --platform ipad --country de --paid "
            "--max-price 12.5 --min-rating 4.0 --min-ratings 1000 --genre \"Developer Tools\" "
            "--updated-within month --max-size 2gb --purchases subscription-only "
            "--architecture needs-rosetta --runs-on 14.2 --released-within 18 --hide-owned "
            "--sort price-low --json");
}

TEST(SearchCommandLine, numbersInTheFormThatIsTaken) {
  const auto rendered = [](const AppFilters& filters) {
    return searchCommandLine({.query = "x", .filters = filters});
  };
  const std::pair<AppFilters, const char*> rows[] = {
      {{.maxPrice = 1e20}, "--max-price 100000000000000000000.0"},
      {{.released = ReleasedBefore{2020}}, "--released-before 2020"},
      {{.released = ReleasedFrom{99}}, "--released-after 0099"},
      {{.runsOn = OSRequirement{"014..2b3."}}, "--runs-on 014.2"},
      {{.runsOn = OSRequirement{"x.1"}}, "--runs-on 0.1"},
  };
  for (const auto& [filters, option] : rows)
    EXPECT_EQ(rendered(filters), std::string("quillet search \"x\" ") + option + " --json");
}

/// The arguments that a shell makes of a command line.
std::vector<std::string> shellArguments(const std::string& shell, const std::string& commandLine) {
  const std::string output =
      shellOutput(shell, "quillet() { printf '%s\\0' \"$@\"; }\n" + commandLine);
  const auto pieces = split(output, '\0');
  return {pieces.begin(), pieces.end() - 1};
}

TEST(SearchCommandLine, noTextLeavesItsQuotes) {
  const std::pair<std::string, std::string> rows[] = {
      {"", ""},
      {"\"; echo 'out'; \"", "\"; echo 'out'; \""},
      {"$(echo a) ${HOME} $1 `echo b`", "$(echo a) ${HOME} $1 `echo b`"},
      {R"(back\slash \\ \" \$ end\)", R"(back\slash \\ \" \$ end\)"},
      {"first\nsecond\\\nthird", "first\nsecond\\\nthird"},
      {"Jump!", "Jump!"},
      {"say !x\nit's !y", "say !x\nit's !y"},
      {"-n", " -n"},
      {"--json", " --json"},
      {"notes 📝 — für alle * ? ~ # ! & | < >", "notes 📝 — für alle * ? ~ # ! & | < >"},
      {std::string("nu\0l", 4), "nul"},
  };
  for (const auto& [query, operand] : rows) {
    const AppFilters filters{.genre = query};
    const std::string line =
        searchCommandLine({.query = query, .country = query, .filters = filters});
    const std::string exact = operand == " " + query ? query : operand;
    const std::vector<std::string> expected{"search",  operand, "--country", exact,
                                            "--genre", exact,   "--json"};
    EXPECT_EQ(shellArguments("sh", line), expected) << line;
    // With a history, as at a prompt.
    EXPECT_EQ(shellArguments("HISTFILE= bash -o history -H", line), expected) << line;
  }
}

}  // namespace
}  // namespace quillet
