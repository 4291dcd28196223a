// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "analysis/filter_counts.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "random_search.h"

namespace quillet {
namespace {

TEST(FilterCounts, AreThoseOfEachAppJudgedAloneWhereAllWasRead) {
  RandomSearch random(1);
  const MatchTerms terms = random.terms();
  for (int round = 0; round < 20; ++round) {
    const std::vector<ITunesApp> apps = random.apps(60);
    const std::vector<AppFilters> choices = random.filterSets(40);
    const std::vector<CatalogReads> reads(apps.size(), {true, true});
    const auto counts = filterCounts(apps, reads, choices, terms);
    for (std::size_t i = 0; i < choices.size(); ++i) {
      const bool isMacOnly = readsArchitecture(choices[i]);
      const auto plain = std::ranges::count_if(apps, [&](const ITunesApp& app) {
        return (!isMacOnly || isMacApp(app)) &&
               matches(app, choices[i], terms.owned, terms.now, terms.zone);
      });
      ASSERT_EQ(counts.at(i), static_cast<std::size_t>(plain)) << round << ": " << i;
    }
  }
}

/// What was not read counts nowhere, and matters only where the rest of the filters lets it.
TEST(FilterCounts, AreAbsentWhereTheyDependOnWhatWasNotRead) {
  RandomSearch random(2);
  const MatchTerms terms = random.terms();
  for (int round = 0; round < 20; ++round) {
    std::vector<ITunesApp> apps = random.apps(20);
    const std::vector<CatalogReads> reads = random.reads(apps.size());
    const std::vector<AppFilters> choices = random.filterSets(40);
    const auto counts = filterCounts(apps, reads, choices, terms);
    // However the unread facts turn out, a count that is told stays.
    for (int turn = 0; turn < 6; ++turn) {
      random.turnOut(apps, reads);
      const std::vector<CatalogReads> all(apps.size(), {true, true});
      const auto later = filterCounts(apps, all, choices, terms);
      for (std::size_t i = 0; i < choices.size(); ++i) {
        if (counts[i]) ASSERT_EQ(counts[i], later[i]) << round << ": " << i;
      }
    }
  }
  // And one that is not told depends on them.
  const std::vector<ITunesApp> one{{.trackId = 1, .kind = "mac-software", .price = 2}};
  const std::vector<AppFilters> asked{
      {.price = PriceFilter::paid},
      {.purchases = PurchaseFilter::buyOutright},
      {.price = PriceFilter::free, .purchases = PurchaseFilter::buyOutright},
      {.minRating = 4},
      {.architecture = ArchitectureFilter::appleSilicon}};
  using Counts = std::vector<std::optional<std::size_t>>;
  const std::vector<CatalogReads> nothing(1);
  EXPECT_EQ(filterCounts(one, nothing, asked, terms), (Counts{1, {}, 0, {}, {}}));
  const std::vector<CatalogReads> build{{.build = true}};
  EXPECT_EQ(filterCounts(one, build, asked, terms), (Counts{1, {}, 0, 0, 0}));
}

}  // namespace
}  // namespace quillet
