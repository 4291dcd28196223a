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

VersionedReview decodedReview() {
  VersionedReview expected{{}, "2.1"};
  expected.review.title = "Good";
  expected.review.body = "Opens\n\nfast.";
  expected.review.rating = 3;
  expected.review.userName = "Birk V.";
  expected.review.date = *parseInternetDate("2026-09-28T18:55:46Z");
  return expected;
}

TEST(ReviewFeedJsonTest, ReadsEntriesInEveryForm) {
  struct Row {
    const char* what;
    std::string entry;  // with its key
    std::vector<VersionedReview> reviews;
  };
  const std::string review(kReview);
  for (const Row& row : std::vector<Row>{
           {"none", R"("id":{})", {}},
           {"a bare one", R"("entry":)" + review, {decodedReview()}},
           {"the app alone", fmt::format(R"("entry":{})", kApp), {}},
           {"the app first", fmt::format(R"("entry":[{},{}])", kApp, kReview), {decodedReview()}},
           {"hardly anything said", fmt::format(R"("entry":[7,{}])", kUndated), {{}}},
       }) {
    const ReviewFeedPage page = decodeReviewFeed("\n{\"feed\":{" + row.entry + "}}\n", 1);
    EXPECT_EQ(page.reviews, row.reviews) << row.what;
    EXPECT_FALSE(page.hasMore) << row.what;
  }
}

TEST(ReviewFeedJsonTest, KnowsWhetherAPageFollows) {
  struct Row {
    const char* what;
    int entries;
    int page;
    std::string_view last;  // its link; empty: none
    bool hasMore;
  };
  for (const Row& row :
       {Row{"full, no link", 50, 1, "", true}, Row{"short, no link", 49, 1, "", false},
        Row{"short, more to come", 2, 5, "https://s.example/us/rss/page=6/id=1/xml?u=/page=1",
            true},
        Row{"full, but the last", 50, 6, "https://s.example/us/rss/page=6/id=1/xml", false},
        Row{"full, an odd link", 50, 6, "https://s.example/us/rss", true},
        Row{"past the end", 0, 2, "https://s.example/us/rss/page=9/id=1/xml", false}}) {
    std::vector<std::string_view> entries(static_cast<std::size_t>(row.entries), kReview);
    const std::string link = fmt::format(
        R"("link":[{{"attributes":{{"rel":"next","href":"/page=3/"}}}},
                   {{"attributes":{{"rel":"{}","href":"{}"}}}}])",
        row.last.empty() ? "self" : "last", row.last);
    const std::string body =
        fmt::format(R"({{"feed":{{"entry":[{}],{}}}}})", fmt::join(entries, ","), link);
    EXPECT_EQ(decodeReviewFeed(body, row.page).hasMore, row.hasMore) << row.what;
  }
}

TEST(ReviewFeedJsonTest, RefusesWhatIsNoFeed) {
  for (const char* body : {"", "Reviews are told up to page 10", "[]", "{}", R"({"feed":[]})"}) {
    EXPECT_THROW((void)decodeReviewFeed(body, 1), DecodingError) << body;
  }
}

}  // namespace
}  // namespace quillet
