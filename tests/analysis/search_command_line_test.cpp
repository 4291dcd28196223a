// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "analysis/search_command_line.h"

#include <gtest/gtest.h>

#include "analysis/every_filter.h"
#include "base/text.h"
#include "support/shell.h"

namespace quillet {
namespace {

TEST(SearchCommandLine, everyWordInItsPlace) {
  EXPECT_EQ(searchCommandLine({}), R"(quillet search "" --json)");
  const SearchRequest full{.query = "markdown editor",
                           .platform = Platform::ipad,
                           .country = "de",
                           .filters = everyFilter(ReleasedWithin{18}),
                           .sort = SortOrder::priceAscending};
  EXPECT_EQ(searchCommandLine(full),
            "quillet search \"markdown editor\" --platform ipad --country de --paid "
            "--max-price 4.99 --min-rating 4.0 --min-ratings 100 --genre \"Graphics & "
            "\\\"Design\\\"\" --updated-within 6months --max-size 2gb --purchases no-iap "
            "--architecture needs-rosetta --runs-on 14.2 --released-within 18 --hide-owned "
            "--sort price-low --json");
}

TEST(SearchCommandLine, numbersInTheFormThatIsTaken) {
  const std::pair<AppFilters, const char*> rows[] = {
      {{.maxPrice = 1e20}, "--max-price 100000000000000000000.0"},
      {{.released = ReleasedBefore{2020}}, "--released-before 2020"},
      {{.released = ReleasedFrom{99}}, "--released-after 0099"},
      {{.runsOn = OSRequirement{"014..2b3.x"}}, "--runs-on 014.2.0"},
  };
  for (const auto& [filters, option] : rows)
    EXPECT_EQ(searchCommandLine({.query = "x", .filters = filters}),
              std::string("quillet search \"x\" ") + option + " --json");
}

/// The arguments that a shell makes of a command line.
std::vector<std::string> shellArguments(const std::string& shell, const std::string& commandLine) {
  const std::string output =
      shellOutput(shell, "quillet() { printf '%s\\0' \"$@\"; }\n" + commandLine);
  const auto pieces = split(output, '\0');
  return {pieces.begin(), pieces.end() - 1};
}

TEST(SearchCommandLine, noTextLeavesItsQuotes) {
  for (const std::string query :
       {"", "\"; echo 'out'; \"", "$(echo a) ${HOME} $1 `echo b`", R"(back\slash \\ \" \$ end\)",
        "first\nsecond\\\nthird", "Jump!", "say !x\nit's !y", "-n", "--json",
        "notes 📝 — für alle * ? ~ # ! & | < >"}) {
    const std::string line =
        searchCommandLine({.query = query, .country = query, .filters = {.genre = query}});
    // A blank keeps a term from being taken for an option.
    const std::vector<std::string> expected{
        "search",    query.starts_with('-') ? " " + query : query,
        "--country", query,
        "--genre",   query,
        "--json"};
    EXPECT_EQ(shellArguments("sh", line), expected) << line;
    // With a history, as at a prompt.
    EXPECT_EQ(shellArguments("HISTFILE= bash -o history -H", line), expected) << line;
  }
  EXPECT_EQ(searchTermWord(std::string_view("nu\0l", 4)), "\"nul\"");
}

}  // namespace
}  // namespace quillet
