// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "store/records/review_feed_json.h"

#include <fmt/format.h>
#include <gtest/gtest.h>

#include "base/errors.h"

namespace quillet {
namespace {

constexpr std::string_view kReview = R"({"author":{"name":{"label":"Birk V."},"label":""},
  "updated":{"label":"2026-09-28T11:55:46-07:00"},"im:rating":{"label":"3"},
  "im:version":{"label":" 2.1"},"title":{"label":"Good"},"content":{"label":"Opens\n\nfast."}})";
constexpr std::string_view kUndated =
    R"({"im:rating":{"label":"9"},"title":{"label":null},"content":"Flat."})";
constexpr std::string_view kApp =
    R"({"im:name":{"label":"Amber"},"title":{"label":"Amber - Noor"}})";

TEST(ReviewFeedJsonTest, ReadsEntriesInEveryForm) {
  const VersionedReview review{.review = {.title = "Good",
                                          .body = "Opens\n\nfast.",
                                          .rating = 3,
                                          .userName = "Birk V.",
                                          .date = parseInternetDate("2026-09-28T18:55:46Z")},
                               .version = "2.1"};
  const std::pair<std::string, std::vector<VersionedReview>> rows[] = {
      {"{}", {}},
      {fmt::format(R"({{"entry":{}}})", kReview), {review}},
      {fmt::format(R"({{"entry":{}}})", kApp), {}},
      {fmt::format(R"({{"entry":[{},{}]}})", kApp, kReview), {review}},
      {fmt::format(R"({{"entry":[7,{}]}})", kUndated), {{}}},
  };
  for (const auto& [feed, reviews] : rows) {
    const ReviewFeedPage page = decodeReviewFeed("\n{\"feed\":" + feed + "}\n", 1);
    EXPECT_EQ(page.reviews, reviews) << feed;
    EXPECT_FALSE(page.hasMore) << feed;
  }
}

TEST(ReviewFeedJsonTest, KnowsWhetherAPageFollows) {
  // How many entries, on which page, the address of the last one (empty: not said); what follows.
  const std::tuple<std::size_t, int, const char*, bool> rows[] = {
      {50, 1, "", true},
      {49, 1, "", false},
      {2, 5, "https://s.example/us/rss/page=6/id=1/xml?u=/page=1", true},
      {50, 6, "https://s.example/us/rss/page=6/id=1/xml", false},
      {50, 6, "https://s.example/us/rss", true},
      {0, 2, "https://s.example/us/rss/page=9/id=1/xml", false},
  };
  for (const auto& [entries, page, last, hasMore] : rows) {
    const std::string body = fmt::format(
        R"({{"feed":{{"entry":[{}],"link":[{{"attributes":{{"rel":"next","href":"/page=3/"}}}},
          {{"attributes":{{"rel":"{}","href":"{}"}}}}]}}}})",
        fmt::join(std::vector(entries, kReview), ","), *last == '\0' ? "self" : "last", last);
    EXPECT_EQ(decodeReviewFeed(body, page).hasMore, hasMore) << entries << ' ' << last;
  }
}

TEST(ReviewFeedJsonTest, RefusesWhatIsNoFeed) {
  for (const char* body : {"", "Reviews are told up to page 10", "[]", "{}", R"({"feed":[]})"})
    EXPECT_THROW((void)decodeReviewFeed(body, 1), DecodingError) << body;
}

}  // namespace
}  // namespace quillet
