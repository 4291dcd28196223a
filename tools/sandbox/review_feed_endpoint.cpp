// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "sandbox/review_feed_endpoint.h"

#include "base/numbers.h"
#include "sandbox/feed_answers.h"
#include "sandbox/random.h"
#include "sandbox/sample_reviews.h"

namespace quillet::sandbox {

namespace {

constexpr std::int64_t kLastPage = 10;
constexpr int kPage = 50;

/// The feed is of more than one age: every fourth app's reviews have no date.
bool hasDates(const SampleApp& app) { return app.id % 4 != 1; }

/// The feed of every third app opens with the app itself.
bool opensWithApp(const SampleApp& app, std::int64_t page) { return page == 1 && app.id % 3 == 0; }

/// The service forgets the feeds of some apps here and there, whatever was written.
bool isForgotten(const SampleApp& app, Storefront storefront) {
  const auto what = 800 + static_cast<std::uint64_t>(storefront);
  return Random(mixed(static_cast<std::uint64_t>(app.id), what)).oneIn(8);
}

std::vector<SampleReview> newest(const SampleStore& store, const SampleApp& app,
                                 Storefront storefront, std::int64_t page) {
  std::vector<SampleReview> reviews;
  if (isForgotten(app, storefront)) return reviews;
  const int start = static_cast<int>(page - 1) * kPage;
  const int end = std::min(reviewCount(app, storefront), start + kPage);
  for (int i = start; i < end; ++i) reviews.push_back(review(app, storefront, store.today(), i));
  return reviews;
}

/// The service fills in "next" past the end as well; only "last" is true.
void addLinks(Feed& feed, const SampleApp& app, Storefront storefront, std::int64_t page) {
  const int count = isForgotten(app, storefront) ? 0 : reviewCount(app, storefront);
  const std::int64_t last = std::clamp<std::int64_t>((count + kPage - 1) / kPage, 1, kLastPage);
  const auto address = [&](std::int64_t number) {
    return fmt::format("https://quillet-store.example/{}/rss/customerreviews/page={}/id={}/xml",
                       codeOf(storefront), number, app.id);
  };
  feed.addLink("last", address(last));
  feed.addLink("next", address(page + 1));
}

void writeEntryAuthor(JsonWriter& json, const SampleReview& review) {
  json.key("author");
  json.beginObject();
  json.member("label", "");
  writeLabel(json, "name", review.userName);
  json.endObject();
}

void writeEntry(JsonWriter& json, const SampleReview& review, bool hasDate) {
  json.beginObject();
  writeEntryAuthor(json, review);
  json.key("content");
  json.beginObject();
  json.key("attributes");
  json.beginObject();
  json.member("type", "text");
  json.endObject();
  json.member("label", review.body);
  json.endObject();
  writeLabel(json, "id", std::to_string(review.id));
  writeLabel(json, "im:rating", std::to_string(review.stars));
  writeLabel(json, "im:version", review.version);
  writeLabel(json, "im:voteCount", "0");
  writeLabel(json, "im:voteSum", "0");
  writeLabel(json, "title", review.title);
  if (hasDate) writeLabel(json, "updated", withOffset(review.date));
  json.endObject();
}

}  // namespace

Answer answerReviewFeed(const SampleStore& store, const Request& request) {
  const auto storefront = storefrontOf(std::string_view(request.captures[0]));
  auto settings = feedSettings(request.captures[1]);
  const auto page = parseWhole(settings["page"]).value_or(1);
  if (!storefront || page < 1) return plainRefusal(400, "No such feed\n");
  if (page > kLastPage) return plainRefusal(400, "Reviews are told up to page 10\n");
  const auto number = store.withId(parseWhole(settings["id"]).value_or(0));
  SampleApp app;
  if (number) app = store.app(*number);
  const bool isKnown = number && app.isSoldIn(*storefront);
  const auto reviews =
      isKnown ? newest(store, app, *storefront, page) : std::vector<SampleReview>();
  const bool hasApp = isKnown && opensWithApp(app, page);
  Feed feed(reviews.size() + (hasApp ? 1 : 0), "Customer Reviews", store.today());
  if (hasApp) writeAppEntry(feed.json(), app, *storefront);
  for (const SampleReview& review : reviews) writeEntry(feed.json(), review, hasDates(app));
  if (isKnown) addLinks(feed, app, *storefront, page);
  return feed.take(request.path);
}

}  // namespace quillet::sandbox
