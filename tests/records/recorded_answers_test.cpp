// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

// Decodes answers of Apple's services that were recorded elsewhere and are no part of this project:
// the folder is named by QUILLET_RECORDED_ANSWERS.

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>

#include "store/records/catalog_enrichment_json.h"
#include "store/records/catalog_lists_json.h"
#include "store/records/catalog_purchases_json.h"
#include "store/records/chart_answers.h"
#include "store/records/embedded_document.h"
#include "store/records/itunes_app_json.h"
#include "store/records/product_page.h"
#include "store/records/review_feed_json.h"
#include "support/temporary_folder.h"

namespace quillet {
namespace {

namespace fs = std::filesystem;

/// What each file must yield: how many apps, how many of them for the Mac, and of the first one its
/// ID, price, size, number of ratings, first release and last update.
const std::vector<std::string> kRecorded{
    "",
    "1 0 284882215 0 67617695 2840784 2008-07-11T07:00:00Z ",
    "1 1 803453959 0 74398324 1467 2014-01-23T02:46:20Z 2018-10-02T23:28:05Z",
    "1 1 904280696 49.99 14822461 1412 2017-05-18T16:42:04Z 2018-12-12T15:08:04Z",
    "20 17 1444383602 7.99 326528000 116322 2019-01-15T09:36:27Z 2020-09-02T14:52:16Z",
    "6 6 803453959 0 74398324 1415 2014-01-23T02:46:20Z 2018-10-02T23:28:05Z",
    "50 44 904280696 49.99 17474797 0 2017-05-18T16:42:04Z 2020-08-04T07:57:44Z",
    "11 8 904280696 49.99 17474797 0 2017-05-18T16:42:04Z 2020-08-04T07:57:44Z",
    "7 7 1384080005 9.99 7149633 0 2018-05-15T16:41:29Z 2020-08-27T20:28:13Z",
};

std::string dateText(const std::optional<Instant>& date) {
  return date ? formatInternetDate(*date) : "";
}

std::string recordedIn(const std::vector<ITunesApp>& apps) {
  if (apps.empty()) return {};
  const ITunesApp& first = apps.front();
  return fmt::format("{} {} {} {} {} {} {} {}", apps.size(), std::ranges::count_if(apps, isMacApp),
                     first.trackId, first.price.value(), sizeInBytes(first).value(),
                     first.userRatingCount.value(), dateText(first.releaseDate),
                     dateText(first.currentVersionReleaseDate));
}

class RecordedAnswers : public testing::Test {
 protected:
  void SetUp() override {
    const char* named = std::getenv("QUILLET_RECORDED_ANSWERS");
    if (named == nullptr) GTEST_SKIP() << "QUILLET_RECORDED_ANSWERS names no folder";
    folder = named;
  }

  [[nodiscard]] std::string content(const std::string& file) const {
    std::string text = contentOf(folder / file);
    EXPECT_FALSE(text.empty()) << file;
    return text;
  }

  fs::path folder;
};

TEST_F(RecordedAnswers, OfSearchAndLookupDecode) {
  std::vector<std::string> recorded;
  for (const char* kind : {"itunes-search", "itunes-lookup"}) {
    for (const auto& entry : fs::directory_iterator(folder / kind)) {
      recorded.push_back(recordedIn(decodeSearchResponse(contentOf(entry.path()))));
      EXPECT_EQ(std::ranges::count(kRecorded, recorded.back()), 1) << entry.path();
    }
  }
  EXPECT_TRUE(std::ranges::is_permutation(recorded, kRecorded)) << "each of them once";
}

TEST_F(RecordedAnswers, OfReviewFeedsDecode) {
  const auto page = [&](const char* file, int number) {
    return decodeReviewFeed(content(std::string("rss-reviews/") + file), number);
  };
  const auto full = page("us-389801252-page1-50-entries-2025.json", 1);
  EXPECT_EQ(full.reviews.size(), 50U);
  EXPECT_TRUE(full.hasMore);
  EXPECT_EQ(full.reviews.at(0).version, "399.0.0");
  EXPECT_EQ(dateText(full.reviews.at(0).review.date), "2025-09-28T18:55:46Z");
  const auto some = page("gb-1510826067-page1-4-entries-2021.json", 1);
  EXPECT_EQ(some.reviews.size(), 4U);
  EXPECT_EQ(some.reviews.at(0).version, "1.1.0");
  const auto none = page("gb-1510826067-page2-no-entry-next-link-2021.json", 2);
  EXPECT_TRUE(none.reviews.empty() && !none.hasMore);
}

TEST_F(RecordedAnswers, OfTheCatalogDecode) {
  const std::string body =
      content("catalog/apps-ids-623592465-363556704-platform-iphone-apple-published.json");
  const AppEnrichment expected{
      .rating = AppRating{4.9, 1987, {}},
      .platform = PlatformInfo{.deviceFamilies = {"iphone", "ipad", "ipod"},
                               .minimumMacOSVersion = "11.0",
                               .isXROSCompatible = false}};
  EXPECT_EQ(decodeEnrichment(body, Platform::iphone), expected);
  EXPECT_EQ(decodeMacCompatibilityFlags(body),
            (std::map<std::int64_t, bool>{{623592465, false}, {363556704, false}}));
  EXPECT_EQ(decodePlatformFacts(body).at(363556704).rating, (AppRating{0, 0, {}}));
  EXPECT_EQ(decodePurchases(body).at(623592465), std::vector<InAppPurchase>{});
}

TEST_F(RecordedAnswers, OfProductsAreWalked) {
  std::string page = content("product-pages/us-1546947240-2026-reduced.html");
  // Whoever recorded it wrote the script's attributes in another order than the store does.
  const std::string_view theirs = R"(id="serialized-server-data" type="application/json">)";
  const std::size_t at = page.find(theirs);
  ASSERT_NE(at, std::string::npos);
  page.replace(at, theirs.size(), R"(type="application/json" id="serialized-server-data">)");
  const EmbeddedDocument document(page);
  EXPECT_FALSE(document.contents().at(0).block("shelfMapping").block("information").isEmpty());
  // They kept one shelf alone, and none that is read here.
  EXPECT_EQ(decodeProductPage(page), ProductPage{});
  const std::string old =
      content("product-pages/us-1121971067-2017-old-layout-no-serialized-data.html");
  EXPECT_THROW((void)decodeProductPage(old), UnreadablePage);
}

TEST_F(RecordedAnswers, OfChartFeedsAreDecoded) {
  EXPECT_EQ(decodeChartFeed(
                content("rss-charts/hk-topfreeapplications-limit1-2018-entry-is-object.json")),
            std::vector<std::int64_t>{310633997});
  const auto ids =
      decodeChartFeed(content("rss-charts/us-topgrossingipadapplications-limit25-2015.json"));
  EXPECT_EQ(ids.size(), 25U);
  EXPECT_EQ(ids.at(0), 667728512);
}

}  // namespace
}  // namespace quillet
