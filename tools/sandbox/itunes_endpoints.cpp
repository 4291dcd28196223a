// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include <algorithm>
#include <array>

#include "base/numbers.h"
#include "base/text.h"
#include "sandbox/answers.h"
#include "sandbox/charts.h"
#include "sandbox/feed_answers.h"
#include "sandbox/json_parts.h"
#include "sandbox/random.h"
#include "sandbox/sample_reviews.h"
#include "sandbox/service_answers.h"

namespace quillet::sandbox {

namespace {

constexpr std::size_t kMostIds = 200;

struct LookUp {
  const SampleStore& store;
  Storefront storefront;
  Freshness freshness;
  std::optional<Shelf> shelf;  ///< absent when no entity was asked for
  std::size_t limit;
  std::string_view pictureHost;
};

/// An ID with builds for both answers with the one for iOS, unless the Mac's is asked for.
RecordKind kindOf(const SampleApp& app, const LookUp& lookUp) {
  const bool isMac = app.machines.mac && (!app.machines.ios() || lookUp.shelf == Shelf::mac);
  return isMac ? RecordKind::mac : RecordKind::ios;
}

void writeRecords(ResultList& results, const std::vector<SampleApp>& apps, const LookUp& lookUp) {
  for (const SampleApp& app : apps)
    writeRecord(results.json(), app,
                {kindOf(app, lookUp), lookUp.storefront, lookUp.freshness,
                 std::string(lookUp.pictureHost)});
}

/// The pieces of a list parted by commas, as far as the service reads it.
std::vector<std::string_view> listed(std::string_view text) {
  std::vector<std::string_view> pieces = split(text, ',');
  pieces.resize(std::min(pieces.size(), kMostIds));
  return pieces;
}

/// The apps that `find` finds for the pieces of a list, without those not sold here.
template <typename Find>
Answer listAnswer(const LookUp& lookUp, std::string_view list, Find find) {
  std::vector<SampleApp> apps;
  for (const std::string_view piece : listed(list)) {
    const std::optional<AppNumber> number = find(trimmed(piece));
    if (!number) continue;
    SampleApp app = lookUp.store.app(*number);
    if (app.isSoldIn(lookUp.storefront)) apps.push_back(std::move(app));
  }
  ResultList results(apps.size());
  writeRecords(results, apps, lookUp);
  return results.take();
}

Answer makerAnswer(const LookUp& lookUp, const std::vector<AppNumber>& numbers) {
  const SampleApp anyApp = lookUp.store.app(numbers.front());
  std::vector<SampleApp> apps;
  for (const AppNumber number : numbers) {
    SampleApp app = lookUp.store.app(number);
    const bool isWanted = lookUp.shelf && runsOn(app.machines, *lookUp.shelf);
    if (isWanted && app.isSoldIn(lookUp.storefront) && apps.size() < lookUp.limit)
      apps.push_back(std::move(app));
  }
  ResultList results(apps.size() + 1);
  writeMakerRecord(results.json(), anyApp.maker, anyApp, lookUp.storefront);
  writeRecords(results, apps, lookUp);
  return results.take();
}

Answer idsAnswer(const LookUp& lookUp, const std::string& ids) {
  const auto makersApps = lookUp.store.ofMaker(parseWhole(ids).value_or(0));
  if (!makersApps.empty()) return makerAnswer(lookUp, makersApps);
  return listAnswer(lookUp, ids, [&](std::string_view text) -> std::optional<AppNumber> {
    const auto id = parseWhole(text);
    return id ? lookUp.store.withId(*id) : std::nullopt;
  });
}

}  // namespace

Answer answerSearch(const SampleStore& store, const Request& request) {
  const auto storefront = storefrontOf(request);
  if (!storefront) return invalidValue("country");
  const std::string entity = request.item("entity");
  const auto shelf = entity.empty() ? Shelf::iphone : shelfOf(entity);
  if (!shelf) return invalidValue("resultEntity");
  const std::string term = request.item("term");
  const auto found = store.search({term, *shelf, *storefront, limitOf(request)});
  ResultList results(found.size());
  for (const AppNumber number : found) {
    const SampleApp app = store.app(number);
    const bool isMac = *shelf == Shelf::mac && app.machines.mac;
    writeRecord(results.json(), app,
                {isMac ? RecordKind::mac : RecordKind::ios, *storefront, request.freshness,
                 request.pictureHost});
  }
  return results.take();
}

Answer answerLookup(const SampleStore& store, const Request& request) {
  const auto storefront = storefrontOf(request);
  if (!storefront) return invalidValue("country");
  const std::string entity = request.item("entity");
  const auto shelf = shelfOf(entity);
  if (!entity.empty() && !shelf) return invalidValue("resultEntity");
  const LookUp lookUp{store, *storefront,      request.freshness,
                      shelf, limitOf(request), request.pictureHost};
  if (const std::string bundleIds = request.item("bundleId"); !bundleIds.empty()) {
    return listAnswer(lookUp, bundleIds,
                      [&](std::string_view text) { return store.withBundleId(text); });
  }
  return idsAnswer(lookUp, request.item("id"));
}

namespace {

constexpr std::int64_t kUsualLength = 10;

struct FeedRow {
  std::string_view name;
  Chart chart;
  Shelf shelf;
  std::int64_t longest;
};

constexpr auto kFeeds = std::to_array<FeedRow>({
    {"topfreemacapps", Chart::topFree, Shelf::mac, 200},
    {"topfreeapplications", Chart::topFree, Shelf::iphone, 100},
    {"topfreeipadapplications", Chart::topFree, Shelf::ipad, 100},
    {"toppaidapplications", Chart::topPaid, Shelf::iphone, 100},
    {"toppaidipadapplications", Chart::topPaid, Shelf::ipad, 100},
    {"topgrossingapplications", Chart::topGrossing, Shelf::iphone, 100},
    {"topgrossingipadapplications", Chart::topGrossing, Shelf::ipad, 100},
    {"topgrossingmacapps", Chart::topGrossing, Shelf::iphone, 100},
});

}  // namespace

Answer answerChartFeed(const SampleStore& store, const Request& request) {
  const auto storefront = storefrontOf(std::string_view(request.captures[0]));
  const auto row = std::ranges::find(kFeeds, request.captures[1], &FeedRow::name);
  auto settings = feedSettings(request.captures[2]);
  if (!storefront || row == kFeeds.end()) return plainRefusal(400, "No such feed\n");
  const auto genre = parseWhole(settings["genre"]).value_or(kAllGenres);
  const auto limit = parseWhole(settings["limit"]).value_or(kUsualLength);
  auto apps = chartOf(store, {row->chart, row->shelf, *storefront, static_cast<int>(genre)});
  const auto longest = static_cast<std::size_t>(std::clamp<std::int64_t>(limit, 1, row->longest));
  apps.resize(std::min(apps.size(), longest));
  Feed feed(apps.size(), std::string(row->name), store.today());
  for (const AppNumber number : apps)
    writeAppEntry(feed.json(), store.app(number), *storefront, request.pictureHost);
  return feed.take(request.path);
}

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

int toldReviews(const SampleApp& app, Storefront storefront) {
  return isForgotten(app, storefront) ? 0 : reviewCount(app, storefront);
}

std::vector<SampleReview> newest(const SampleStore& store, const SampleApp& app,
                                 Storefront storefront, std::int64_t page) {
  std::vector<SampleReview> reviews;
  const int start = static_cast<int>(page - 1) * kPage;
  const int end = std::min(toldReviews(app, storefront), start + kPage);
  for (int i = start; i < end; ++i) reviews.push_back(review(app, storefront, store.today(), i));
  return reviews;
}

/// The service fills in "next" past the end as well; only "last" is true.
void addLinks(Feed& feed, const SampleApp& app, Storefront storefront, std::int64_t page) {
  const int count = toldReviews(app, storefront);
  const std::int64_t last = std::clamp<std::int64_t>((count + kPage - 1) / kPage, 1, kLastPage);
  const auto address = [&](std::int64_t number) {
    return fmt::format("https://quillet-store.example/{}/rss/customerreviews/page={}/id={}/xml",
                       codeOf(storefront), number, app.id);
  };
  feed.addLink("last", address(last));
  feed.addLink("next", address(page + 1));
}

void writeReviewEntry(JsonWriter& json, const SampleReview& review, bool hasDate) {
  writeObject(json, [&] {
    writeObject(json, "author", [&] {
      json.member("label", "");
      writeLabel(json, "name", review.userName);
    });
    writeObject(json, "content", [&] {
      writeObject(json, "attributes", [&] { json.member("type", "text"); });
      json.member("label", review.body);
    });
    writeLabel(json, "id", std::to_string(review.id));
    writeLabel(json, "im:rating", std::to_string(review.stars));
    writeLabel(json, "im:version", review.version);
    writeLabel(json, "im:voteCount", "0");
    writeLabel(json, "im:voteSum", "0");
    writeLabel(json, "title", review.title);
    if (hasDate) writeLabel(json, "updated", withOffset(review.date));
  });
}

/// A feed about an app that nobody knows, or that is not sold here, is empty.
Answer emptyFeed(const SampleStore& store, const Request& request) {
  return Feed(0, "Customer Reviews", store.today()).take(request.path);
}

}  // namespace

Answer answerReviewFeed(const SampleStore& store, const Request& request) {
  const auto storefront = storefrontOf(std::string_view(request.captures[0]));
  auto settings = feedSettings(request.captures[1]);
  const auto page = parseWhole(settings["page"]).value_or(1);
  if (!storefront || page < 1) return plainRefusal(400, "No such feed\n");
  if (page > kLastPage) return plainRefusal(400, "Reviews are told up to page 10\n");
  const auto number = store.withId(parseWhole(settings["id"]).value_or(0));
  if (!number) return emptyFeed(store, request);
  const SampleApp app = store.app(*number);
  if (!app.isSoldIn(*storefront)) return emptyFeed(store, request);
  const auto reviews = newest(store, app, *storefront, page);
  const bool hasApp = opensWithApp(app, page);
  Feed feed(reviews.size() + (hasApp ? 1 : 0), "Customer Reviews", store.today());
  if (hasApp) writeAppEntry(feed.json(), app, *storefront, request.pictureHost);
  for (const SampleReview& review : reviews) writeReviewEntry(feed.json(), review, hasDates(app));
  addLinks(feed, app, *storefront, page);
  return feed.take(request.path);
}

}  // namespace quillet::sandbox
