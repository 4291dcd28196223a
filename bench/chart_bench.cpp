// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

// Shows charts of the sample store that it was started by. Prints, in milliseconds, how long it
// takes from the store's last answer to a chart of 200 apps until its rows are painted with what
// the library knows of it: movement, best places and lines.

#include <fmt/format.h>

#include <QAbstractItemView>
#include <QEventLoop>
#include <QTimer>
#include <stdexcept>

#include "bench_world.h"
#include "desktop/lists/list_pane.h"
#include "desktop/sections/charts/chart_rows.h"
#include "desktop/store_lists/store_feed.h"
#include "net/qt_http_client.h"
#include "system/endpoints.h"
#include "system/even_random.h"

namespace quillet {
namespace {

constexpr QSize kListSize(620, 800);
constexpr std::chrono::milliseconds kBetween{60};
constexpr int kRounds = 8;

/// Notes when the last records of apps came; pictures come later.
class WatchedClient final : public HttpClient {
 public:
  explicit WatchedClient(HttpClient& client) : client_(client) {}

  Task<HttpResponse> get(HttpRequest request, StopToken stop) override {
    const bool isLookup = request.url.find("/lookup?") != std::string::npos;
    HttpResponse response = co_await client_.get(std::move(request), std::move(stop));
    if (isLookup) answered = Stopwatch();
    co_return response;
  }

  Stopwatch answered;

 private:
  HttpClient& client_;
};

/// The charts that the library records.
std::vector<StoreQuery> recordedCharts() {
  std::vector<StoreQuery> queries;
  for (const auto& platform : kPlatformWords) {
    for (const ChartType type : {ChartType::topFree, ChartType::topPaid}) {
      StoreQuery query;
      query.request.platform = platform.value;
      query.chart = ShownChart{type, {}};
      queries.push_back(query);
    }
  }
  return queries;
}

double timeOf(const StoreQuery& query, const ViewWorld& world, const WatchedClient& http) {
  auto* feed = new StoreFeed(world, chartRow);
  ListPane pane(QStringLiteral("Chart"), chartTable(), std::unique_ptr<RowFeed>(feed), world);
  pane.resize(kListSize);
  pane.show();
  auto& rows = *pane.findChild<QAbstractItemView*>();
  PaintCount painted(*rows.viewport());
  QObject::connect(feed, &RowFeed::filled, &painted, [&] { painted.count = 0; });
  feed->show(query);
  pane.expect({.section = SectionId::charts, .what = query});
  waitUntil([&] { return feed->chart() != nullptr && painted.count > 0; });
  const double time = http.answered.onTheWall();
  if (rows.model()->rowCount() != kWholeChart) throw std::runtime_error("not 200 places");
  if (!feed->chart()->since) throw std::runtime_error("no recorded day before");
  QEventLoop loop;  // what follows a sight ends
  QTimer::singleShot(kBetween, &loop, &QEventLoop::quit);
  loop.exec();
  return time;
}

void run() {
  const ProcessEnvironment environment;
  const Places places = findPlaces(environment);
  QtHttpClient client({});
  WatchedClient http(client);
  BenchWorld world(places.dataDirectory / "default.store", http);
  Services services(http, world.clock(),
                    findEndpoints(environment, IniSettings::parse({}), places));
  world.store().use(services.all, {});
  std::vector<double> times;
  for (int round = 0; round < kRounds; ++round) {
    for (const StoreQuery& query : recordedCharts())
      times.push_back(timeOf(query, world.views(), http));
  }
  fmt::print(R"({{"count":{},"p50":{:.1f},"p95":{:.1f},"longest":{:.1f}}})"
             "\n",
             times.size(), percentile(times, 50), percentile(times, 95),
             *std::ranges::max_element(times));
}

}  // namespace
}  // namespace quillet

int main(int argc, char** argv) { return quillet::measureViews(argc, argv, quillet::run); }
