// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include <gtest/gtest.h>

#include "support/local_command_test.h"

namespace quillet {
namespace {

using SavedSearchesTest = LocalCommandTest;

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
            "  Filters  Paid, Price up to 5, 4+ stars, Not in My Apps\n"
            "  Run it   quillet search \"markdown editor\" --platform ipad --country us --paid "
            "--max-price 5.0 --min-rating 4.0 --hide-owned --sort price-low --json");
  EXPECT_EQ(
      json({"saved-searches"}),
      flattened(R"({"count": 2,"items": [{"commandLine": "quillet search \"\" --country gb --json",
      "country": "gb","createdAt": "2001-01-01T00:00:00Z","filters": {},"name": "all",
      "platform": "mac","query": "","sort": "relevance"},{
      "commandLine": "quillet search \"markdown editor\" --platform ipad --country us --paid --max-price 5.0 --min-rating 4.0 --hide-owned --sort price-low --json",
      "country": "us","createdAt": "2001-01-01T00:00:00Z","filters": {"hideOwned": "true",
      "maxPrice": "5.0","minRating": "4.0","price": "paid"},"lastUsedAt": "2001-01-02T00:00:00Z",
      "name": "Cheap \"editors\"","platform": "ipad","query": "markdown editor",
      "sort": "priceAscending"}],"total": 2})"));
}

}  // namespace
}  // namespace quillet
