// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include <gtest/gtest.h>

#include <set>

#include "base/json_reader.h"
#include "sample_answers.h"
#include "sandbox/sample_reviews.h"
#include "store/records/catalog_reviews_json.h"

namespace quillet::sandbox {
namespace {

constexpr std::int64_t kManyReviews = 1176895641;

ReviewsPage pageOf(const std::string& country, std::int64_t id, int limit, int offset) {
  const Answer answer = asBrowser(
      fmt::format("/api/apps/v1/catalog/{}/apps/{}/reviews", country, id),
      {{"platform", "ipad"}, {"limit", std::to_string(limit)}, {"offset", std::to_string(offset)}});
  EXPECT_EQ(answer.status, 200);
  return decodeReviewsPage(answer.body);
}

TEST(Reviews, pagesHoldEachReviewOnce) {
  const int count = reviewCount(sampleApp(kManyReviews), Storefront::gb);
  ASSERT_GT(count, 60);
  std::set<std::pair<std::string, Instant>> seen;
  int read = 0;
  for (bool hasMore = true; hasMore; read += 20) {
    const ReviewsPage page = pageOf("gb", kManyReviews, 20, read);
    for (const AppReview& review : page.reviews) seen.emplace(review.userName, *review.date);
    hasMore = page.hasMore;
    EXPECT_EQ(hasMore, read + 20 < count);
  }
  EXPECT_EQ(seen.size(), static_cast<std::size_t>(count));
  EXPECT_TRUE(pageOf("gb", kManyReviews, 20, count).reviews.empty());
  EXPECT_EQ(asBrowser("/api/apps/v1/catalog/gb/apps/1176895641/reviews",
                      {{"platform", "mac"}, {"limit", "21"}})
                .status,
            400);
}

TEST(Reviews, followTheRatingsAndTheVersions) {
  const SampleApp app = sampleApp(kManyReviews);
  const int count = reviewCount(app, Storefront::us);
  double stars = 0;
  int replies = 0;
  int edited = 0;
  for (int i = 0; i < count; ++i) {
    const SampleReview each = review(app, Storefront::us, kSampleDay, i);
    stars += each.stars;
    replies += each.reply ? 1 : 0;
    edited += each.isEdited ? 1 : 0;
    EXPECT_LT(each.date, Instant(kSampleDay));
    EXPECT_GT(each.date, app.firstReleased);
    if (i > 0) EXPECT_LT(each.date, review(app, Storefront::us, kSampleDay, i - 1).date);
    if (each.reply) EXPECT_GE(each.reply->written, each.date);
    for (const SampleVersion& version : app.versions) {
      if (version.number == each.version) break;
      EXPECT_GT(version.released, each.date) << "a newer version was out";
    }
  }
  EXPECT_NEAR(stars / count, app.ratings.average(), 0.15);
  EXPECT_GT(replies, count / 20);
  EXPECT_GT(edited, count / 20);
}

TEST(Reviews, areThoseOfTheirStorefront) {
  const auto inGermany = pageOf("de", kManyReviews, 5, 0).reviews;
  EXPECT_EQ(inGermany, pageOf("de", kManyReviews, 5, 0).reviews);
  EXPECT_NE(inGermany, pageOf("us", kManyReviews, 5, 0).reviews);
}

/// The forms that a feed's "entry" takes, and what is in it.
struct FeedForm {
  std::string entry = "absent";
  bool opensWithApp = false;
  std::size_t reviews = 0;
  bool hasDates = false;
};

std::string labelOf(const JsonObject& entry, std::string_view key) {
  const auto member = jsonMember(entry, key);
  return member ? std::string(std::string_view((*member)["label"])) : std::string();
}

FeedForm formOf(const Answer& answer) {
  const JsonDocument document(answer.body);
  FeedForm form;
  const auto entry = jsonMember(JsonObject(document.root()["feed"]), "entry");
  if (!entry) return form;
  form.entry = entry->is_array() ? "list" : "object";
  std::vector<JsonObject> entries;
  if (entry->is_array()) {
    for (const JsonElement each : JsonArray(*entry)) entries.emplace_back(each);
  } else {
    entries.emplace_back(*entry);
  }
  form.opensWithApp = labelOf(entries.front(), "im:rating").empty();
  form.reviews = entries.size() - (form.opensWithApp ? 1 : 0);
  form.hasDates = parseInternetDate(labelOf(entries.back(), "updated")).has_value();
  return form;
}

Answer feedOf(std::int64_t id, int page) {
  return asBrowser(
      fmt::format("/us/rss/customerreviews/page={}/id={}/sortBy=mostRecent/json", page, id));
}

TEST(ReviewFeed, takesEveryFormOfTheService) {
  std::set<std::string> forms;
  std::set<std::string> kinds;
  for (AppNumber number = 0; number < sampleStore().size(); ++number) {
    const SampleApp app = sampleStore().app(number);
    const FeedForm form = formOf(feedOf(app.id, 1));
    const auto count = static_cast<std::size_t>(reviewCount(app, Storefront::us));
    EXPECT_TRUE(form.reviews == 0 || form.reviews == std::min<std::size_t>(count, 50)) << app.name;
    forms.insert(form.entry);
    if (form.opensWithApp) kinds.insert("app");
    if (form.reviews > 0) kinds.insert(form.hasDates ? "dated" : "undated");
    if (form.reviews == 0 && count > 0) kinds.insert("forgotten");
  }
  EXPECT_EQ(forms, (std::set<std::string>{"absent", "list", "object"}));
  EXPECT_EQ(kinds, (std::set<std::string>{"app", "dated", "forgotten", "undated"}));
}

TEST(ReviewFeed, endsWithPageTen) {
  EXPECT_EQ(feedOf(kManyReviews, 11).contentType, "text/plain");
  EXPECT_EQ(feedOf(kManyReviews, 10).status, 200);
  EXPECT_EQ(formOf(feedOf(12, 1)).entry, "absent");
  EXPECT_EQ(asBrowser("/zz/rss/customerreviews/page=1/id=12/json").status, 400);
}

}  // namespace
}  // namespace quillet::sandbox
