// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

// A price check of ten thousand watched apps in five storefronts, against answers that are there at
// once: what is left is Quillet's own work. Prints what a thousand apps take of processor time, and
// the longest time for which the event loop was held, seen by a timer of one millisecond.

#include <fmt/format.h>

#include <QCoreApplication>
#include <QTemporaryDir>
#include <QTimer>
#include <algorithm>
#include <array>
#include <ctime>

#include "base/numbers.h"
#include "base/text.h"
#include "library/watched_apps.h"
#include "library/watchlist_monitor.h"
#include "net/completion.h"
#include "net/run_task.h"
#include "support/impatient_clock.h"

namespace quillet {
namespace {

using Wall = std::chrono::steady_clock;

constexpr int kApps = 10'000;
constexpr std::array kCountries{"us", "gb", "de", "fr", "jp"};

/// Every twentieth app has become cheaper since it was watched, and so has what it sells.
bool isCheaper(std::int64_t id) { return id % 20 == 0; }

std::string recordOf(std::int64_t id) {
  return fmt::format(
      R"({{"trackId":{0},"trackName":"Sample App {0}","kind":"mac-software","currency":"USD",)"
      R"("price":{1},"formattedPrice":"${1}","version":"2.0","description":"{2}",)"
      R"("genres":["Utilities"],"primaryGenreName":"Utilities","sellerName":"Sample Seller",)"
      R"("screenshotUrls":["https://pictures.example/{0}/1.png"],"fileSizeBytes":"48000000"}})",
      id, isCheaper(id) ? "1.99" : "4.99", std::string(2500, 'd'));
}

std::string catalogEntryOf(std::int64_t id) {
  std::string purchases;
  for (int i = 0; i < 3; ++i) {
    purchases +=
        fmt::format(R"({4}{{"id":"{0}{1}","attributes":{{"name":"Pro {1}","isSubscription":true,)"
                    R"("offers":[{{"price":{2},"priceFormatted":"${2}","currencyCode":"USD",)"
                    R"("recurringSubscriptionPeriod":"P1M"}}]}}}}{3})",
                    id, i, isCheaper(id) ? "2.99" : "5.99", "", i == 0 ? "" : ",");
  }
  return fmt::format(
      R"({{"id":"{}","attributes":{{}},"views":{{"top-in-app-purchasables":{{"data":[{}]}}}}}})",
      id, purchases);
}

/// Has an answer about any apps at once.
class ReadyStore final : public HttpClient {
 public:
  ReadyStore() {
    for (std::int64_t id = 1; id <= kApps; ++id) {
      records_.push_back(recordOf(id));
      entries_.push_back(catalogEntryOf(id));
    }
  }

  Task<HttpResponse> get(HttpRequest request, StopToken /*stop*/) override {
    const Completion turn;
    turn.set();
    co_await turn;
    const bool isLookup = request.url.find("/lookup") != std::string::npos;
    const std::size_t from = request.url.find(isLookup ? "id=" : "ids=") + (isLookup ? 3 : 4);
    const std::string ids = request.url.substr(from, request.url.find('&', from) - from);
    co_return HttpResponse{
        200, answer(isLookup ? "results" : "data", ids, isLookup ? records_ : entries_)};
  }

 private:
  static std::string answer(std::string_view key, const std::string& ids,
                            const std::vector<std::string>& parts) {
    std::string body = fmt::format(R"({{"{}":[)", key);
    for (const std::string_view id : split(ids, ',')) {
      if (body.back() != '[') body += ',';
      body += parts.at(static_cast<std::size_t>(parseWhole(id).value_or(1) - 1));
    }
    return body + "]}";
  }

  std::vector<std::string> records_;
  std::vector<std::string> entries_;
};

std::vector<WatchedApp> watchlist() {
  std::vector<WatchedApp> apps;
  for (std::int64_t id = 1; id <= kApps; ++id) {
    WatchedApp app;
    app.trackId = id;
    app.country = kCountries[static_cast<std::size_t>(id) % kCountries.size()];
    app.platformRaw = "mac";
    app.name = fmt::format("Sample App {}", id);
    app.currency = "USD";
    app.priceWhenAdded = app.currentPrice = 4.99;
    app.lastCheckedAt = Instant{};
    app.alertOnAnyDrop = true;
    app.alertOnPurchasePrices = id % 4 == 0;
    apps.push_back(std::move(app));
  }
  return apps;
}

/// What the process has used, in milliseconds.
double processorTime() { return static_cast<double>(std::clock()) * 1000 / CLOCKS_PER_SEC; }

/// The longest time between two turns of the event loop, while it lives.
class HoldWatch {
 public:
  HoldWatch() {
    timer_.setTimerType(Qt::PreciseTimer);
    QObject::connect(&timer_, &QTimer::timeout, &timer_, [this] {
      const auto now = Wall::now();
      longest = std::max(longest, now - last_);
      last_ = now;
    });
    timer_.start(std::chrono::milliseconds(1));
  }

  Wall::duration longest{};

 private:
  QTimer timer_;
  Wall::time_point last_ = Wall::now();
};

int run() {
  const QTemporaryDir folder;
  const auto store =
      runTask(DataStore::open(folder.filePath(QStringLiteral("default.store")).toStdString()));
  runTask(store->change(watchApps, watchlist()));
  ImpatientClock clock;  // nobody waits for the request budget
  ReadyStore http;
  const IniSettings settings = IniSettings::parse("");
  ITunesClient itunes(http, clock, "http://store.example");
  CatalogClient catalog(http, clock, "http://web.example", [] { return 0.5; }, {});
  WatchlistMonitor monitor(itunes, catalog, *store, clock, settings,
                           [](double price, const auto&) { return fmt::format("{:.2f}", price); });
  for (const char* pass : {"first", "next"}) {
    const HoldWatch watch;
    const double before = processorTime();
    runTask(monitor.refresh({}));
    const double used = processorTime() - before;
    const std::chrono::duration<double, std::milli> hold = watch.longest;
    fmt::print("{{\"pass\":\"{}\",\"cpuMsPerThousand\":{:.1f},\"longestHoldMs\":{:.1f}}}\n", pass,
               used * 1000 / kApps, hold.count());
  }
  return monitor.lastError() ? 1 : 0;
}

}  // namespace
}  // namespace quillet

int main(int argc, char** argv) {
  const QCoreApplication eventLoop(argc, argv);
  return quillet::run();
}
