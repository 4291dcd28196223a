// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "sandbox/sample_store.h"

#include <gtest/gtest.h>

#include <set>

#include "sample_answers.h"
#include "sandbox/words.h"

namespace quillet::sandbox {
namespace {

std::vector<std::string> names(const SampleStore& store, const std::vector<AppNumber>& numbers) {
  std::vector<std::string> result;
  for (const AppNumber number : numbers) result.push_back(store.app(number).name);
  return result;
}

/// The store of hand-written apps alone: what the lists of these tests hold does not hang on luck.
const SampleStore& handWritten() {
  static const SampleStore store({.apps = 0, .today = kSampleDay});
  return store;
}

TEST(SampleStore, ordersByNameThenFame) {
  const std::pair<SearchQuery, std::vector<std::string>> cases[] = {
      {{"rss", Shelf::mac},
       {"Feedthistle – RSS Reader", "Riverrook RSS", "Barnowl RSS Menu", "Dailysift"}},
      {{"Photo Editor", Shelf::mac, Storefront::us, 3},
       {"Lumenfjord Photo Editor", "Rawmeadow", "Darkbothy"}},
      {{"number barn", Shelf::ipad}, {"Kids' Number Barn"}},
      {{"number barn", Shelf::iphone}, {}},
      {{"trainsparrow", Shelf::iphone, Storefront::de}, {"Trainsparrow Deutschland"}},
      {{"trainsparrow", Shelf::iphone, Storefront::us}, {}},
  };
  for (const auto& [query, expected] : cases)
    EXPECT_EQ(names(handWritten(), handWritten().search(query)), expected) << query.term;
}

TEST(SampleStore, sellsAtThePricesOfAnEarlierDay) {
  const auto centsOn = [](std::chrono::sys_days day) {
    const SampleStore store({.apps = 0, .today = kSampleDay, .pricesOf = day});
    return store.app(store.withId(1230145698).value()).usCents;
  };
  EXPECT_EQ(centsOn(kSampleDay), 499);
  EXPECT_EQ(centsOn(kSampleDay - std::chrono::days(5)), 499);
  EXPECT_EQ(centsOn(kSampleDay - std::chrono::days(6)), 999);
  EXPECT_EQ(centsOn(kSampleDay - std::chrono::days(32)), 499);
}

/// What every app must be, hand-written or made up.
void expectSound(const SampleStore& store, AppNumber number) {
  const SampleApp app = store.app(number);
  SCOPED_TRACE(app.name);
  EXPECT_EQ(store.withId(app.id), number);
  EXPECT_EQ(store.withBundleId(app.bundleId), number);
  const auto siblings = store.ofMaker(app.maker.id);
  EXPECT_NE(std::ranges::find(siblings, number), siblings.end());
  EXPECT_TRUE(app.machines.mac || app.machines.ios());
  EXPECT_TRUE(app.storefronts.any());
  EXPECT_TRUE(isPricePoint(app.usCents));
  for (const int genre : app.genres) EXPECT_FALSE(genreName(genre).empty());
  for (const SamplePurchase& purchase : app.purchases) EXPECT_TRUE(isPricePoint(purchase.usCents));
  ASSERT_FALSE(app.versions.empty());
  EXPECT_LT(app.versions.front().released, Instant(kSampleDay));
  EXPECT_LE(app.firstReleased, app.versions.back().released);
  for (std::size_t i = 1; i < app.versions.size(); ++i)
    EXPECT_LT(app.versions[i].released, app.versions[i - 1].released);
}

TEST(SampleStore, everyAppIsSoundAndFound) {
  const SampleStore store({.apps = 3000, .seed = 5, .today = kSampleDay});
  std::set<std::int64_t> ids;
  for (AppNumber number = 0; number < store.size(); ++number) {
    expectSound(store, number);
    ids.insert(store.app(number).id);
  }
  EXPECT_EQ(ids.size(), 3000U);
}

}  // namespace
}  // namespace quillet::sandbox
