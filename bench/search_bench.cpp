// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

// Searches the sample store that it was started by, and opens pages: search_bench TERM. Prints, in
// milliseconds: what filtering and sorting 200 results anew takes until the table has its rows, in
// processor time; how long it takes until rows are painted after a filter was chosen, and after the
// store was asked for them; and what the page of an app that is known here takes from its choice
// until it is painted, of apps that the library keeps, that a search found, and whose page was seen
// before.

#include <fmt/format.h>

#include <QAbstractItemView>
#include <QEventLoop>
#include <QTimer>
#include <stdexcept>

#include "bench_world.h"
#include "desktop/page/app_page.h"
#include "desktop/page/page_header.h"
#include "desktop/sections/search/search_section.h"
#include "desktop/store_lists/filter_panel.h"
#include "desktop/store_lists/store_feed.h"
#include "library/watched_apps.h"
#include "net/qt_http_client.h"
#include "store/charts_page_scraper.h"
#include "store/charts_service.h"
#include "system/endpoints.h"
#include "system/even_random.h"

namespace quillet {
namespace {

constexpr QSize kListSize(864, 800);  // with the panel of filters, beside a page
constexpr QSize kPageSize(560, 860);
constexpr std::size_t kResults = 200;
constexpr std::size_t kRounds = 8;
constexpr std::chrono::milliseconds kBetween{60};

StoreQuery queryFor(const std::string& term) {
  StoreQuery query;
  query.request.query = term;
  query.request.platform = Platform::iphone;  // whose ratings and all come with the answer
  return query;
}

/// What a search is filtered by in turn; each leaves some.
std::vector<AppFilters> filterSets() {
  std::vector<AppFilters> sets(6);
  sets[1].price = PriceFilter::paid;
  sets[2].minRating = 4;
  sets[3].updatedWithin = UpdatedFilter::year;
  sets[4].price = PriceFilter::free;
  sets[4].minRatingCount = 100;
  sets[5].hideOwned = true;
  return sets;
}

/// Until the table has its rows: each filter in each order.
std::vector<double> arrangeTimes(const ViewWorld& world, StoreQuery query) {
  StoreFeed feed(world);
  feed.wake();
  feed.show(query);
  waitUntil([&] { return feed.countsOf(filterSets()).back().has_value(); });  // also of those owned
  if (feed.found()->apps.size() != kResults) throw std::runtime_error("not 200 results");
  std::vector<double> times;
  for (const auto& sort : kSortOrderTexts) {
    query.request.sort = sort.value;
    for (const AppFilters& filters : filterSets()) {
      query.request.filters = filters;
      const Stopwatch watch;
      feed.show(query);
      times.push_back(watch.ofThread());
    }
  }
  return times;
}

Place placeOf(const StoreQuery& query) {
  Place place;
  place.section = SectionId::search;
  place.what = query;
  return place;
}

/// The term in other letters, large and small ones: the same search, of which no answer is kept.
std::string respelt(std::string term, std::size_t number) {
  for (std::size_t i = 0; i < term.size(); ++i) {
    if ((number >> i & 1U) != 0) term[i] = static_cast<char>(term[i] - 'a' + 'A');
  }
  return term;
}

/// Lets what follows a sight end: pictures, what is counted, blocks further down.
void rest() {
  QEventLoop loop;
  QTimer::singleShot(kBetween, &loop, &QEventLoop::quit);
  loop.exec();
}

/// From the choice until it is painted.
class RowsPainted {
 public:
  explicit RowsPainted(QAbstractItemView& rows) : rows_(rows), painted_(*rows.viewport()) {
    const auto forget = [this] { painted_.count = 0; };
    QObject::connect(rows.model(), &QAbstractItemModel::modelReset, &painted_, forget);
    QObject::connect(rows.model(), &QAbstractItemModel::rowsInserted, &painted_, forget);
  }

  double after(const auto& act) {
    painted_.count = 0;
    const Stopwatch watch;
    act();
    waitUntil([this] { return painted_.count > 0 && rows_.model()->rowCount() > 0; });
    const double time = watch.onTheWall();
    rest();
    return time;
  }

 private:
  QAbstractItemView& rows_;
  PaintCount painted_;
};

struct RowTimes {
  std::vector<double> filtered, asked, ratios;  ///< of each round, the median of its filters
};

/// In turns: after a filter was chosen in the panel, and after the store was asked for the same.
RowTimes rowTimes(const ViewWorld& world, const StoreQuery& query) {
  const auto section = makeSearch(world);
  QWidget& view = *section->view();
  view.resize(kListSize);
  view.show();
  auto& panel = *view.findChild<FilterPanel*>();
  RowsPainted rows(*view.findChild<QAbstractItemView*>());
  RowTimes times;
  for (std::size_t round = 0; round < kRounds; ++round) {
    StoreQuery asked = query;
    asked.request.query = respelt(query.request.query, round);
    times.asked.push_back(rows.after([&] { section->show(placeOf(asked)); }));
    std::vector<double> filtered;
    for (const AppFilters& filters : filterSets()) {
      if (filters == AppFilters()) continue;  // as it was asked for
      filtered.push_back(rows.after([&] { Q_EMIT panel.changed(filters); }));
    }
    times.filtered.push_back(percentile(std::move(filtered), 50));
    times.ratios.push_back(times.filtered.back() / times.asked.back());
  }
  return times;
}

struct PageTimes {
  std::vector<double> wall, work;
};

class Pages {
 public:
  explicit Pages(const ViewWorld& world)
      : page_(world), header_(*page_.findChild<PageHeader*>()), painted_(header_) {
    page_.resize(kPageSize);
    page_.setVisible(true);
    QObject::connect(&page_, &AppPage::filled, &painted_, [this] {
      isFilled_ = true;
      painted_.count = 0;
    });
  }

  /// From its choice until header and first blocks are painted.
  PageTimes times(const std::vector<AppKey>& apps) {
    PageTimes times;
    for (const AppKey& app : apps) {
      isFilled_ = false;
      const Stopwatch watch;
      page_.show(app);
      waitUntil([this] { return isFilled_ && painted_.count > 0; });
      times.wall.push_back(watch.onTheWall());
      times.work.push_back(watch.ofProcess());
      rest();
    }
    return times;
  }

  /// Until all is known of it that the page asks for.
  void read(const AppKey& app) {
    page_.show(app);
    waitUntil([this] { return page_.isAsking(); });
    waitUntil([this] { return !page_.isAsking(); });
    rest();
  }

 private:
  AppPage page_;
  PageHeader& header_;
  PaintCount painted_;
  bool isFilled_ = false;
};

std::vector<AppKey> watchedKeys(const ViewWorld& world) {
  std::vector<AppKey> keys;
  for (const WatchedApp& app : runTask(world.library.read(watchedApps)))
    keys.push_back({app.trackId, app.country});
  return keys;
}

/// Those of a search, which stand on the shelf since.
std::vector<AppKey> foundKeys(Services& services, const StoreQuery& query) {
  std::vector<AppKey> keys;
  const auto found =
      runTask(services.itunes.search(query.request.query, "us", query.request.platform, kResults,
                                     {RequestClass::interactive, {}}));
  for (const ITunesApp& app : found) keys.push_back({app.trackId, "us"});
  return keys;
}

/// The last three, over and over.
std::vector<AppKey> seenKeys(Pages& pages, const std::vector<AppKey>& apps) {
  constexpr std::size_t kTimes = 20;
  std::vector<AppKey> keys(apps.begin(), apps.begin() + 3);
  for (const AppKey& app : keys) pages.read(app);
  std::vector<AppKey> over;
  for (std::size_t i = 0; i < kTimes; ++i) over.insert(over.end(), keys.begin(), keys.end());
  return over;
}

std::string textOf(const std::vector<double>& times) {
  return fmt::format(R"({{"p50":{:.1f},"p95":{:.1f},"p99":{:.1f}}})", percentile(times, 50),
                     percentile(times, 95), percentile(times, 99));
}

std::string textOf(const PageTimes& times) {
  return fmt::format(R"({{"count":{},"work":{},"wall":{}}})", times.wall.size(), textOf(times.work),
                     textOf(times.wall));
}

void run(const std::string& term) {
  const ProcessEnvironment environment;
  const Places places = findPlaces(environment);
  QtHttpClient http({});
  BenchWorld world(places.dataDirectory / "default.store", http);
  Services services(http, world.clock(),
                    findEndpoints(environment, IniSettings::parse({}), places));
  world.store().use(services.all, {});
  const ViewWorld views = world.views();
  const StoreQuery query = queryFor(term);
  const std::vector<double> arranged = arrangeTimes(views, query);
  const RowTimes rows = rowTimes(views, query);
  Pages pages(views);
  const std::vector<AppKey> found = foundKeys(services, query);
  const PageTimes ofLibrary = pages.times(watchedKeys(views));
  const PageTimes ofSearch = pages.times(found);
  const PageTimes ofSeen = pages.times(seenKeys(pages, watchedKeys(views)));
  fmt::print(R"({{"arranged":{:.2f},"arrangedP95":{:.2f},"filtered":{:.1f},"asked":{:.1f},)"
             R"("filteredToAsked":{:.2f},"pages":{{"library":{},"search":{},"seen":{}}}}})"
             "\n",
             percentile(arranged, 50), percentile(arranged, 95), percentile(rows.filtered, 50),
             percentile(rows.asked, 50), percentile(rows.ratios, 50), textOf(ofLibrary),
             textOf(ofSearch), textOf(ofSeen));
}

}  // namespace
}  // namespace quillet

int main(int argc, char** argv) { return quillet::measureViews(argc, argv, quillet::run); }
