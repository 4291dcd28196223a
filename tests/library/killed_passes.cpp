// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include <SQLiteCpp/Statement.h>

#include <array>
#include <map>
#include <vector>

#include "base/text.h"
#include "library/data_store.h"
#include "library/killed_writers.h"
#include "library/watched_apps.h"
#include "library/watchlist_monitor.h"
#include "support/impatient_clock.h"
#include "support/memory_settings.h"

namespace quillet {
namespace {

// Each storefront's apps are one lookup, and so one change.
constexpr std::array kCountries{"us", "de", "jp"};
constexpr std::int64_t kAppsEach = 40;
constexpr double kFirstPrice = 1'000'000;
constexpr double kFirstPurchase = 500'000;

bool hasPurchases(std::int64_t trackId) { return trackId % 4 == 0; }

/// How often the storefront was checked, as its first app's price says.
std::int64_t roundsOf(SQLite::Database& database, const std::string& country) {
  SQLite::Statement price(database, "SELECT ZCURRENTPRICE FROM ZWATCHEDAPP WHERE ZCOUNTRY = ?");
  price.bind(1, country);
  return price.executeStep()
             ? static_cast<std::int64_t>(kFirstPrice - price.getColumn(0).getDouble())
             : 0;
}

using Rounds = std::map<std::string, std::int64_t>;

Rounds allRounds(SQLite::Database& database) {
  Rounds rounds;
  for (const std::string country : kCountries) rounds[country] = roundsOf(database, country);
  return rounds;
}

/// Sells everything cheaper by one with each lookup, in a new version.
class FallingStore final : public HttpClient {
 public:
  explicit FallingStore(Rounds rounds) : rounds_(std::move(rounds)) {}

  Task<HttpResponse> get(HttpRequest request, StopToken /*stop*/) override {
    const Completion turn;
    turn.set();
    co_await turn;
    const bool isLookup = request.url.find("/lookup") != std::string::npos;
    const std::string country = isLookup ? wordAfter(request.url, "country=", "&")
                                         : wordAfter(request.url, "/catalog/", "/");
    const std::int64_t round = isLookup ? ++rounds_.at(country) : rounds_.at(country);
    const std::string ids = wordAfter(request.url, isLookup ? "id=" : "ids=", "&");
    std::vector<std::string> parts;
    for (const std::string_view id : split(ids, ','))
      parts.push_back(isLookup ? recordOf(id, round) : entryOf(id, round));
    co_return HttpResponse{
        200, fmt::format(R"({{"{}":[{}]}})", isLookup ? "results" : "data", fmt::join(parts, ","))};
  }

 private:
  static std::string wordAfter(const std::string& url, std::string_view before,
                               std::string_view after) {
    const std::size_t from = url.find(before) + before.size();
    return url.substr(from, url.find(after, from) - from);
  }

  static std::string recordOf(std::string_view id, std::int64_t round) {
    return fmt::format(R"({{"trackId":{0},"trackName":"Sample App {0}","kind":"mac-software",)"
                       R"("currency":"USD","price":{1},"version":"{2}"}})",
                       id, kFirstPrice - static_cast<double>(round), round);
  }

  static std::string entryOf(std::string_view id, std::int64_t round) {
    return fmt::format(R"({{"id":"{0}","attributes":{{}},"views":{{"top-in-app-purchasables":)"
                       R"({{"data":[{{"id":"{0}1","attributes":{{"name":"Pro","offers":[{{"price":)"
                       R"({1},"currencyCode":"USD"}}]}}}}]}}}}}})",
                       id, kFirstPurchase - static_cast<double>(round));
  }

  Rounds rounds_;
};

std::vector<WatchedApp> watchlist() {
  std::vector<WatchedApp> apps;
  for (const char* country : kCountries) {
    for (std::int64_t id = 1; id <= kAppsEach; ++id)
      apps.push_back({.trackId = id,
                      .country = country,
                      .platformRaw = "mac",
                      .name = fmt::format("Sample App {}", id),
                      .currency = "USD",
                      .priceWhenAdded = kFirstPrice,
                      .currentPrice = kFirstPrice,
                      .lastKnownVersion = "0",
                      .alertOnAnyDrop = true,
                      .alertOnNewVersion = true,
                      .alertOnPurchasePrices = hasPurchases(id)});
  }
  return apps;
}

std::int64_t totalOf(SQLite::Database& database) {
  std::int64_t total = 0;
  for (const auto& [country, rounds] : allRounds(database)) total += rounds;
  return total;
}

Task<> writePasses(std::string file) {
  const auto store = co_await DataStore::open(std::move(file));
  co_await store->change(watchApps, watchlist());  // where they are not yet
  std::int64_t number = co_await store->read(totalOf);
  FallingStore http(co_await store->read(allRounds));
  ImpatientClock clock;
  const MemorySettings settings;
  ITunesClient itunes(http, clock, "http://store.example");
  CatalogClient catalog(http, clock, "http://web.example", [] { return 0.5; }, {});
  WatchlistMonitor monitor(itunes, catalog, *store, clock, settings,
                           [](double price, const auto&) { return fmt::format("{:.2f}", price); });
  QObject::connect(store.get(), &DataStore::changed, &monitor, [&] { reportChange(++number); });
  for (;;) {
    co_await monitor.refresh({});
    require(monitor.lastEnd() == PassEnd::complete && !monitor.lastError(),
            "a pass failed: " + monitor.lastError().value_or(""));
  }
}

/// All that a check writes of an app, beside one another: its row in each table, or how many there
/// are, and the last price in each.
constexpr const char* kTraces = R"(
  SELECT w.ZTRACKID, w.ZCURRENTPRICE, w.ZLASTKNOWNVERSION, w.ZLASTCHECKEDAT IS NOT NULL,
    w.ZLASTNOTIFIEDPRICE, c.ZPRICE, c.ZVERSION, d.ZNOWPRICE,
    (SELECT count(*) || ' ' || min(ZPRICE) FROM ZPRICEPOINT p
       WHERE p.ZTRACKID = w.ZTRACKID AND p.ZCOUNTRY = w.ZCOUNTRY),
    (SELECT count(*) || ' ' || coalesce(min(ZPRICE), 0) FROM ZPURCHASEPRICEPOINT p
       WHERE p.ZTRACKID = w.ZTRACKID AND p.ZCOUNTRY = w.ZCOUNTRY),
    (SELECT count(*) FROM ZALERTRECORD a
       WHERE a.ZTRACKID = w.ZTRACKID AND a.ZCOUNTRY = w.ZCOUNTRY)
  FROM ZWATCHEDAPP w
  LEFT JOIN ZCACHEDAPP c ON c.ZTRACKID = w.ZTRACKID AND c.ZCOUNTRY = w.ZCOUNTRY
  LEFT JOIN ZDEAL d ON d.ZTRACKID = w.ZTRACKID AND d.ZCOUNTRY = w.ZCOUNTRY
  WHERE w.ZCOUNTRY = ? ORDER BY w.ZTRACKID)";

/// What these are after so many checks: each tells of a price and of a version, and all but the
/// first of a purchase that became cheaper.
std::string expectedTraces(std::int64_t trackId, std::int64_t rounds) {
  const bool isWatched = hasPurchases(trackId);
  const double price = kFirstPrice - static_cast<double>(rounds);
  const double purchase = isWatched ? kFirstPurchase - static_cast<double>(rounds) : 0;
  return fmt::format("{0} {1:.1f} {2} 1 {1:.1f} {1:.1f} {2} {1:.1f} {2} {1:.1f} {3} {4} {5}",
                     trackId, price, rounds, isWatched ? rounds : 0,
                     isWatched ? fmt::format("{:.1f}", purchase) : "0",
                     2 * rounds + (isWatched ? rounds - 1 : 0));
}

void requireRounds(SQLite::Database& database, const std::string& country, std::int64_t rounds) {
  SQLite::Statement rows(database, kTraces);
  rows.bind(1, country);
  std::int64_t count = 0;
  while (rows.executeStep()) {
    ++count;
    if (rounds == 0) continue;
    std::vector<std::string> found;
    for (int i = 0; i < rows.getColumnCount(); ++i) found.push_back(rows.getColumn(i).getString());
    const std::string expected = expectedTraces(rows.getColumn(0).getInt64(), rounds);
    require(fmt::format("{}", fmt::join(found, " ")) == expected,
            fmt::format("{}: {}, not {}", country, fmt::join(found, " "), expected));
  }
  require(count == 0 || count == kAppsEach, fmt::format("{} apps of {}", count, country));
}

std::int64_t lastCheck(SQLite::Database& database) {
  for (const auto& [country, rounds] : allRounds(database))
    requireRounds(database, country, rounds);
  return totalOf(database);
}

}  // namespace

const KilledWriter kPasses{"passes", writePasses, lastCheck};

}  // namespace quillet
