// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include <algorithm>

#include "base/numbers.h"
#include "base/text.h"
#include "sandbox/amounts.h"
#include "sandbox/answers.h"
#include "sandbox/bundles.h"
#include "sandbox/catalog_answers.h"
#include "sandbox/catalog_attributes.h"
#include "sandbox/catalog_resources.h"
#include "sandbox/charts.h"
#include "sandbox/json_parts.h"
#include "sandbox/pictures.h"
#include "sandbox/sample_reviews.h"
#include "sandbox/stories.h"
#include "sandbox/web_addresses.h"

namespace quillet::sandbox {

// Reviews.

namespace {

// A prime beyond the number of any app's reviews: its multiples visit each of them once.
constexpr int kStride = 7919;

constexpr std::int64_t kMostReviewsOfAnApp = 10;
constexpr std::int64_t kLongestPage = 20;
constexpr std::int64_t kUsualPage = 10;
constexpr std::int64_t kFarthest = 1'000'000;

/// A stretch of an app's reviews.
struct ReviewList {
  std::vector<SampleReview> reviews;
  std::string next;  ///< the catalog's address of what follows; empty: nothing does
};

/// Reviews in the catalog's order, in which helpful ones of any age come first.
ReviewList reviewsByHelpfulness(const SampleStore& store, const SampleApp& app,
                                Storefront storefront, std::int64_t offset, std::int64_t limit) {
  const int count = reviewCount(app, storefront);
  const auto end = static_cast<int>(std::min<std::int64_t>(count, offset + limit));
  ReviewList list;
  for (int i = static_cast<int>(offset); i < end; ++i)
    list.reviews.push_back(review(app, storefront, store.today(), i * kStride % count));
  if (end < count) {
    list.next = fmt::format("/v1/catalog/{}/apps/{}/reviews?offset={}", codeOf(storefront), app.id,
                            offset + limit);
  }
  return list;
}

}  // namespace

Answer answerCatalogReviews(const SampleStore& store, const Request& request) {
  if (auto refusal = catalogRefusal(request)) return std::move(*refusal);
  const Storefront storefront = catalogView(request).storefront;
  const std::int64_t limit = parseWhole(request.item("limit")).value_or(kUsualPage);
  const std::int64_t offset = parseWhole(request.item("offset")).value_or(0);
  if (limit < 1 || limit > kLongestPage || offset < 0 || offset > kFarthest)
    return catalogError(400, "Invalid Parameter Value", "The page is too long or nowhere");
  const auto apps = catalogApps(store, {request.captures[1]}, storefront);
  if (apps.empty()) return catalogError(404, "Resource Not Found", "No app has this ID here");
  const ReviewList reviews = reviewsByHelpfulness(store, apps.front(), storefront, offset, limit);
  if (reviews.reviews.empty())
    return catalogError(404, "No Related Resources", "This app has no reviews so far on");
  ResourceList list;
  for (const SampleReview& review : reviews.reviews) writeReview(list.json(), review);
  return list.take(reviews.next);
}

// Apps.

namespace {

constexpr const char* kPurchases = "top-in-app-purchasables";

bool asksFor(const Request& request, const std::string& item, std::string_view word) {
  const std::string list = request.item(item);
  const auto words = split(list, ',');
  return std::ranges::find(words, word) != words.end();
}

Shelf shelfFor(const SampleApp& app, RecordKind kind) {
  if (app.machines.mac && (kind == RecordKind::mac || !app.machines.ios())) return Shelf::mac;
  return app.machines.iphone ? Shelf::iphone : Shelf::ipad;
}

std::optional<ChartPlace> chartPlace(const SampleStore& store, const SampleApp& app,
                                     const RecordView& view) {
  const ChartQuery query{.chart = app.usCents == 0 ? Chart::topFree : Chart::topPaid,
                         .shelf = shelfFor(app, view.kind),
                         .storefront = view.storefront,
                         .genre = app.genres.front()};
  const auto apps = chartOf(store, query);
  const auto place = std::ranges::find(apps, *store.withId(app.id));
  if (place == apps.end()) return std::nullopt;
  return ChartPlace{
      .chart = std::string(textOf(kChartWords, query.chart)),
      .genre = query.genre,
      .position = static_cast<std::size_t>(place - apps.begin()) + 1,
      .url = chartUrl(textOf(kShelfWords, query.shelf), query.genre, view.storefront)};
}

void writeReviews(JsonWriter& json, const SampleStore& store, const SampleApp& app,
                  const Request& request) {
  const auto asked = parseWhole(request.item("limit[reviews]")).value_or(kMostReviewsOfAnApp);
  const auto limit = std::clamp<std::int64_t>(asked, 1, kMostReviewsOfAnApp);
  const auto list = reviewsByHelpfulness(store, app, catalogView(request).storefront, 0, limit);
  writeObject(json, "reviews", [&] {
    json.list("data", list.reviews, writeReview);
    json.memberUnlessEmpty("next", list.next);
  });
}

void writeRelationships(JsonWriter& json, const SampleStore& store, const SampleApp& app,
                        const Request& request) {
  writeObject(json, "relationships", [&] {
    if (asksFor(request, "include", "related-editorial-items")) {
      writeDataOf(json, "related-editorial-items", storiesAbout(app),
                  [&](const SampleStory& story) {
                    writeReference(json, std::to_string(story.id), "editorial-items");
                  });
    }
    if (asksFor(request, "include", "reviews")) writeReviews(json, store, app, request);
    if (asksFor(request, "include", "top-in-apps") && !app.purchases.empty())
      writePurchaseList(json, "top-in-apps", app, catalogView(request).storefront);
  });
}

/// An app with what `writeRelated` writes behind its attributes.
template <typename Write>
void writeApp(JsonWriter& json, const SampleApp& app, const RecordView& view,
              const MoreAttributes& more, Write writeRelated) {
  writeObject(json, [&] {
    json.key("attributes");
    writeAppAttributes(json, app, view, more);
    json.member("id", std::to_string(app.id));
    writeRelated();
  });
}

}  // namespace

Answer answerCatalogApp(const SampleStore& store, const Request& request) {
  if (auto refusal = catalogRefusal(request)) return std::move(*refusal);
  const RecordView view = catalogView(request);
  const auto apps = catalogApps(store, {request.captures[1]}, view.storefront);
  if (apps.empty()) return catalogError(404, "Resource Not Found", "No app has this ID here");
  const SampleApp& app = apps.front();
  ResourceList list;
  const MoreAttributes more{asksFor(request, "extend", "versionHistory"),
                            chartPlace(store, app, view)};
  writeApp(list.json(), app, view, more, [&] {
    writeRelationships(list.json(), store, app, request);
    list.json().member("type", "apps");
  });
  return list.take();
}

Answer answerCatalogApps(const SampleStore& store, const Request& request) {
  if (auto refusal = catalogRefusal(request)) return std::move(*refusal);
  const auto ids = catalogIds(request);
  if (!ids) return wrongIds();
  const RecordView view = catalogView(request);
  const bool hasPurchases = request.item("views") == kPurchases;
  const MoreAttributes more{asksFor(request, "extend", "versionHistory"), {}};
  ResourceList list;
  JsonWriter& json = list.json();
  for (const SampleApp& app : catalogApps(store, *ids, view.storefront)) {
    writeApp(json, app, view, more, [&] {
      json.member("type", "apps");
      if (!hasPurchases || app.purchases.empty()) return;
      writeObject(json, "views",
                  [&] { writePurchaseList(json, kPurchases, app, view.storefront); });
    });
  }
  return list.take();
}

// Bundles.

namespace {

void writeBundleAttributes(JsonWriter& json, const SampleBundle& bundle, const RecordView& view) {
  const Storefront storefront = view.storefront;
  writeObject(json, "attributes", [&] {
    json.key("artwork");
    writeIconTemplate(json, bundle.id, view.pictureHost);
    json.member("name", bundle.name);
    writeList(json, "offers", [&] {
      writeObject(json, [&] {
        writePriceMembers(json, storefront, priceIn(storefront, bundle.usCents));
        json.member("type", "buy");
      });
    });
    json.member("url", webUrl("app-bundle", bundle.name, bundle.id, storefront));
  });
}

void writeBundle(JsonWriter& json, const SampleBundle& bundle, const RecordView& view,
                 bool hasApps) {
  const auto writeMember = [&](const SampleApp& app) {
    writeApp(json, app, view, {}, [&] { json.member("type", "apps"); });
  };
  writeObject(json, [&] {
    writeBundleAttributes(json, bundle, view);
    json.member("id", std::to_string(bundle.id));
    if (hasApps) {
      writeObject(json, "relationships",
                  [&] { writeDataOf(json, "apps", bundle.apps, writeMember); });
    }
    json.member("type", "app-bundles");
  });
}

}  // namespace

Answer answerCatalogBundles(const SampleStore& store, const Request& request) {
  if (auto refusal = catalogRefusal(request)) return std::move(*refusal);
  const auto ids = catalogIds(request);
  if (!ids) return wrongIds();
  const RecordView view = catalogView(request);
  ResourceList list;
  for (const std::string& id : *ids) {
    const auto bundle = bundleWithId(store, parseWhole(id).value_or(0), view.storefront);
    if (bundle) writeBundle(list.json(), *bundle, view, request.item("include") == "apps");
  }
  return list.take();
}

// Stories.

namespace {

void writeStoryArtwork(JsonWriter& json, const SampleStory& story, std::string_view host) {
  writeObject(json, [&] {
    json.member("bgColor", story.background);
    json.member("height", 1080);
    json.member("url", pictureUrl(host, {story.id, Picture::story}, "{w}x{h}bb.{f}"));
    json.member("width", 1920);
  });
}

/// Every other story has its picture a level deeper, under the form of card that it is for.
void writeStoryArtworks(JsonWriter& json, const SampleStory& story, std::string_view host) {
  json.key("editorialArtwork");
  if (story.id % 2 == 0) return writeStoryArtwork(json, story, host);
  writeObject(json, [&] {
    json.key("storyCard");
    writeStoryArtwork(json, story, host);
  });
}

void writeStory(JsonWriter& json, const SampleStory& story, std::string_view host) {
  writeObject(json, [&] {
    writeObject(json, "attributes", [&] {
      writeStoryArtworks(json, story, host);
      writeObject(json, "editorialNotes", [&] {
        json.member("name", story.title);
        json.member(story.id % 3 == 0 ? "short" : "tagline", story.tagline);
      });
      json.member("label", story.label);
    });
    json.member("id", std::to_string(story.id));
    json.member("type", "editorial-items");
  });
}

}  // namespace

Answer answerEditorial(const SampleStore& store, const Request& request) {
  if (auto refusal = catalogRefusal(request)) return std::move(*refusal);
  const auto ids = catalogIds(request);
  if (!ids) return wrongIds();
  ResourceList list;
  for (const std::string& id : *ids) {
    if (const auto story = storyWithId(store, parseWhole(id).value_or(0)))
      writeStory(list.json(), *story, request.pictureHost);
  }
  return list.take();
}

}  // namespace quillet::sandbox
