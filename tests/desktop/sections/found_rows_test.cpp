// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/store_lists/found_rows.h"

#include <gtest/gtest.h>

#include "library/library_folder.h"

namespace quillet {
namespace {

using namespace Qt::StringLiterals;

const Instant kNow = dayAndSecond(100);

RecordedPrice recorded(int day, double amount, const char* currency = "USD") {
  return {dayAndSecond(day), amount, currency};
}

/// A paid app of which everything is told that a row may show.
ITunesApp sold(std::optional<bool> any = {}, std::optional<bool> plan = {},
               std::optional<bool> unlock = {}, std::optional<InsideCost> cost = {}) {
  return {.trackId = 7,
          .trackName = "Paperfold",
          .sellerName = "Hazelworks",
          .kind = "mac-software",
          .price = 4.99,
          .formattedPrice = "$4.99",
          .currency = "USD",
          .averageUserRating = 4.4,
          .userRatingCount = 1204,
          .hasInAppPurchases = any,
          .hasSubscription = plan,
          .hasUnlockPurchase = unlock,
          .insideCost = std::move(cost)};
}

class FoundRows : public testing::Test {
 protected:
  AppRow rowOf(const ITunesApp& app) {
    return foundRow(app, {{7, "us"}}, Platform::mac, {library, formats, kNow});
  }

  FoundInLibrary library;
  LocaleFormats formats{{}};
};

TEST_F(FoundRows, TellWhatIsPaidBesideThePriceAsFarAsItIsKnown) {
  const InsideCost yearly{19.99, {}, "USD"};
  const InsideCost both{19.99, 9.99, "USD"};
  ITunesApp free = sold(true, true, true, both);
  free.price = 0;
  const std::pair<ITunesApp, QString> rows[] = {
      {sold(), {}},
      {sold(false, false, false), u"pay once"_s},
      {sold(true), u"in-app purchases"_s},
      {sold(true, true), u"subscription"_s},
      {sold(true, true, false, yearly), u"$19.99/year"_s},
      {sold(true, true, true, both), u"or $19.99/year"_s},
      {sold(true, true, true), u"or subscription"_s},
      {free, u"unlock $9.99"_s},
      {sold(true, false, false), u"extras"_s},
  };
  for (const auto& [app, text] : rows) EXPECT_EQ(rowOf(app).aside, text);
  EXPECT_EQ(rowOf(ITunesApp{.trackId = 7}).price.text, u"Free"_s);
}

TEST_F(FoundRows, MoveAsTheLibraryRecordedThem) {
  using Prices = std::vector<RecordedPrice>;
  const struct {
    const char* name;
    Prices prices;
    PriceMove move;
    bool isLowest;
  } rows[] = {
      {"never changed", {recorded(1, 4.99)}, PriceMove::none, false},
      {"just dropped, not recorded yet", {recorded(1, 9.99)}, PriceMove::down, false},
      {"dropped lately", {recorded(1, 9.99), recorded(90, 4.99)}, PriceMove::down, true},
      {"dropped long ago", {recorded(1, 9.99), recorded(20, 4.99)}, PriceMove::none, true},
      {"rose lately", {recorded(1, 2.99), recorded(90, 4.99)}, PriceMove::up, false},
      {"another currency", {recorded(1, 9, "EUR"), recorded(90, 8, "EUR")}, PriceMove::none, false},
  };
  for (const auto& row : rows) {
    library.prices = {{{7, "us"}, row.prices}};
    const AppRow made = rowOf(sold());
    EXPECT_EQ(made.price.move, row.move) << row.name;
    EXPECT_EQ(made.marks.testFlag(RowMark::atLowest), row.isLowest) << row.name;
  }
  // A watched one as the watchlist has it.
  WatchedApp app = watched(7);
  app.currency = "USD";
  app.priceWhenAdded = 6.99;
  library.watched = {{{7, "us"}, app}};
  EXPECT_EQ(rowOf(sold()).price.move, PriceMove::down);
}

TEST_F(FoundRows, SayToWhomTheAppBelongsAndHowItIsRated) {
  library.owned = {7};
  library.watched = {{{7, "us"}, watched(7)}};
  AppRow row = rowOf(sold());
  EXPECT_EQ(row.detail, u"owned · watched · Hazelworks"_s);
  EXPECT_EQ(sentenceOf(row),
            u"Paperfold, $4.99, owned · watched · Hazelworks, 4.5 of 5 stars from 1,204 ratings"_s);
  ITunesApp unrated = sold();
  unrated.averageUserRating = 0;
  unrated.userRatingCount = 0;
  EXPECT_FALSE(rowOf(unrated).ratingHalves);
}

}  // namespace
}  // namespace quillet
