// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "store/records/review_feed_json.h"

#include "base/errors.h"
#include "base/numbers.h"
#include "base/text.h"
#include "store/records/catalog_answer.h"

namespace quillet {

namespace {

// Full pages have so many entries; the app itself may be one of them.
constexpr std::size_t kFullPage = 50;

/// Nearly every value of a feed stands under a "label".
template <typename T>
std::optional<T> labelOf(const CatalogBlock& entry, std::string_view key) {
  return entry.block(key).get<T>("label");
}

std::string labelText(const CatalogBlock& entry, std::string_view key) {
  return labelOf<std::string>(entry, key).value_or("");
}

bool isReview(const CatalogBlock& entry) { return !entry.block("im:rating").isEmpty(); }

VersionedReview readReview(const CatalogBlock& entry) {
  VersionedReview result{{}, std::string(trimmed(labelText(entry, "im:version")))};
  AppReview& review = result.review;
  review.title = labelText(entry, "title");
  review.body = labelText(entry, "content");
  review.userName = labelText(entry.block("author"), "name");
  review.date = labelOf<Instant>(entry, "updated");
  const auto stars = labelOf<std::int64_t>(entry, "im:rating");
  if (stars && *stars >= 1 && *stars <= 5) review.rating = static_cast<int>(*stars);
  return result;
}

/// The page in an address such as "…/customerreviews/page=6/id=…".
std::optional<std::int64_t> pageIn(std::string_view address) {
  constexpr std::string_view kMark = "page=";
  const std::size_t mark = address.find(kMark);
  if (mark == std::string_view::npos) return {};
  const std::string_view rest = address.substr(mark + kMark.size());
  return parseWhole(rest.substr(0, rest.find_first_not_of("0123456789")));
}

/// The feed's link "next" is filled in past the end, too: only "last" can be believed.
std::optional<std::int64_t> lastPage(const CatalogBlock& feed) {
  for (const CatalogBlock& link : feed.list("link")) {
    const CatalogBlock attributes = link.block("attributes");
    if (attributes.text("rel") == "last") return pageIn(attributes.text("href"));
  }
  return {};
}

CatalogBlock feedIn(const JsonDocument& document) {
  JsonObject root;
  if (document.root().get(root) != simdjson::SUCCESS || !jsonMember(root, "feed")) {
    throw DecodingError("it holds no feed");
  }
  const CatalogBlock feed = CatalogBlock(root).block("feed");
  if (feed.isEmpty()) throw DecodingError("its feed is no object");
  return feed;
}

ReviewFeedPage readPage(const JsonDocument& document, int page) {
  const CatalogBlock feed = feedIn(document);
  const std::vector<CatalogBlock> entries = feed.list("entry");
  ReviewFeedPage result;
  for (const CatalogBlock& entry : entries) {
    if (isReview(entry)) result.reviews.push_back(readReview(entry));
  }
  const auto last = lastPage(feed);
  const bool isFull = entries.size() >= kFullPage;
  result.hasMore = !result.reviews.empty() && (last ? page < *last : isFull);
  return result;
}

}  // namespace

ReviewFeedPage decodeReviewFeed(const std::string& body, int page) {
  try {
    const JsonDocument document(body);
    return readPage(document, page);
  } catch (const DecodingError& error) {
    throw UnreadableAnswer("Apple's answer", error.what());
  }
}

}  // namespace quillet
