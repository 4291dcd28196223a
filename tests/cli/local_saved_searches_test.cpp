// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include <gtest/gtest.h>

#include <cstdio>

#include "analysis/filters_json.h"
#include "analysis/search_command_line.h"
#include "base/json_reader.h"
#include "support/local_command_test.h"

namespace quillet {
namespace {

class SavedSearchesTest : public LocalCommandTest {
 protected:
  /// As the desktop application keeps a search.
  static std::string insert(const SearchRequest& search) {
    const auto literal = [](const std::string& text) {
      const std::unique_ptr<char, void (*)(void*)> quoted(sqlite3_mprintf("%Q", text.c_str()),
                                                          sqlite3_free);
      return std::string(quoted.get());
    };
    return fmt::format(
        "INSERT INTO ZSAVEDSEARCH VALUES (NULL, {0}, {0}, '{1}', '{2}', '{3}', {4}, "
        "0, NULL);",
        literal(search.query), textOf(kPlatformWords, search.platform), search.country.value_or(""),
        textOf(kSortOrderTexts, search.sort), literal(encodeFilters(search.filters)));
  }

  /// The arguments that the machine's own shell makes of a command line.
  static std::vector<std::string> shellArguments(const std::string& commandLine) {
    const std::string script = "quillet() { printf '%s\\0' \"$@\"; }\n" + commandLine;
    const std::unique_ptr<FILE, int (*)(FILE*)> pipe(popen(script.c_str(), "r"), pclose);
    std::vector<std::string> arguments(1);
    for (int c = std::fgetc(pipe.get()); c != EOF; c = std::fgetc(pipe.get())) {
      if (c == '\0') {
        arguments.emplace_back();
      } else {
        arguments.back() += static_cast<char>(c);
      }
    }
    arguments.pop_back();
    return arguments;
  }

  /// What the search command makes of a listed command line.
  static SearchRequest parsed(const std::string& commandLine) {
    const std::vector<std::string> words = shellArguments(commandLine);
    EXPECT_EQ(words.at(0), "search");
    const CLIOptions options = parseOptions(std::span(words).subspan(1), "xx");
    EXPECT_EQ(options.operands.size(), 1U) << commandLine;
    return {.query = options.operands.at(0),
            .platform = options.platform.value_or(Platform::mac),
            .country = options.country,
            .filters = options.filters,
            .sort = options.sort.value_or(SortOrder::relevance)};
  }
};

TEST_F(SavedSearchesTest, printsThemAsCommands) {
  makeLibrary(R"(INSERT INTO ZSAVEDSEARCH VALUES
    (1, 'Cheap "editors"', 'markdown editor', 'ipad', 'us', 'priceAscending',
     '{"price":"paid","maxPrice":5,"minRating":4,"hideOwned":true}', 0, 86400),
    (2, 'all', '', 'mac', 'gb', 'relevance', 'garbage', 0, NULL);)");
  EXPECT_EQ(run({"saved-searches"}),
            "all\n"
            "  Query    (no term)\n"
            "  Store    gb, mac\n"
            "  Filters  none\n"
            "  Run it   quillet search \"\" --country gb --json\n"
            "\n"
            "Cheap \"editors\"\n"
            "  Query    markdown editor\n"
            "  Store    us, ipad\n"
            "  Filters  Paid, Up to 5.0, 4+ stars, Not in My Apps\n"
            "  Run it   quillet search \"markdown editor\" --platform ipad --country us --paid "
            "--max-price 5.0 --min-rating 4.0 --hide-owned --sort price-low --json");
  EXPECT_EQ(
      oneLine(run({"saved-searches", "--json"})),
      oneLine(R"({"count": 2,"items": [{"commandLine": "quillet search \"\" --country gb --json",
      "country": "gb","createdAt": "2001-01-01T00:00:00Z","filters": {},"name": "all",
      "platform": "mac","query": "","sort": "relevance"},{
      "commandLine": "quillet search \"markdown editor\" --platform ipad --country us --paid --max-price 5.0 --min-rating 4.0 --hide-owned --sort price-low --json",
      "country": "us","createdAt": "2001-01-01T00:00:00Z","filters": {"hideOwned": "true",
      "maxPrice": "5.0","minRating": "4.0","price": "paid"},"lastUsedAt": "2001-01-02T00:00:00Z",
      "name": "Cheap \"editors\"","platform": "ipad","query": "markdown editor",
      "sort": "priceAscending"}],"total": 2})"));
}

TEST_F(SavedSearchesTest, theirCommandsReadBackAsTheSameSearches) {
  std::vector<SearchRequest> searches;
  const auto add = [&](const AppFilters& filters, const std::string& query = "x") {
    searches.push_back({.query = query,
                        .platform = static_cast<Platform>(searches.size() % 3),
                        .country = "de",
                        .filters = filters,
                        .sort = static_cast<SortOrder>(searches.size() % 8)});
  };
  add({.price = PriceFilter::free});
  add({.price = PriceFilter::paid, .maxPrice = 0.1 + 0.2});
  add({.minRating = 4.5, .minRatingCount = 123456789012});
  for (const auto& row : kUpdatedFilterTexts) add({.updatedWithin = row.value});
  for (const auto& row : kSizeFilterTexts) add({.maxSize = row.value});
  for (const auto& row : kPurchaseFilterTexts) add({.purchases = row.value});
  for (const auto& row : kArchitectureFilterTexts) add({.architecture = row.value});
  add({.runsOn = OSRequirement{"14.2.1"}, .released = ReleasedWithin{18}, .hideOwned = true});
  add({.released = ReleasedBefore{999}});
  add({.released = ReleasedFrom{2024}});
  const char* hostile[] = {"say \"hi\" 'there'",
                           "$(echo a) `id` ${HOME} $1",
                           "back\\slash \\\" \\$ \\",
                           "two\nlines\\\nthree",
                           "\"; exit 3; \"",
                           "-n",
                           "--json",
                           "📝 für ! * ? ~ # & | < >",
                           ""};
  for (const char* text : hostile) add({.genre = text}, text);

  std::string rows;
  for (const SearchRequest& search : searches) rows += insert(search);
  makeLibrary(rows);
  const JsonDocument document(run({"saved-searches", "--json"}));
  std::vector<SearchRequest> read;
  for (const auto item : document.root()["items"].get_array()) {
    SearchRequest search = parsed(std::string(item["commandLine"].get_string().value()));
    if (search.query.starts_with(" -")) search.query.erase(0, 1);  // the search trims its term
    read.push_back(std::move(search));
  }
  ASSERT_EQ(read.size(), searches.size());
  for (const SearchRequest& search : searches) {
    EXPECT_NE(std::find(read.begin(), read.end(), search), read.end()) << searchCommandLine(search);
  }
}

}  // namespace
}  // namespace quillet
