// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "library/cached_apps.h"
#include "library/chart_orders.h"
#include "library/recorded_history.h"
#include "library/schema/chart_key.h"
#include "sandbox/charts.h"
#include "sandbox/library/sample_lists.h"
#include "sandbox/library/sample_source.h"
#include "sandbox/random.h"
#include "sandbox/words.h"
#include "store/records/chart_type.h"

namespace quillet::sandbox {

namespace {

using namespace std::chrono_literals;
using std::chrono::days;

constexpr int kDays = 60;
constexpr std::size_t kViewed = 36;
constexpr std::size_t kLongestName = 80;
constexpr std::size_t kRanked = 12;  // viewed apps whose pages showed a rank

std::vector<std::int64_t> idsOf(const SampleStore& store, const std::vector<AppNumber>& apps) {
  std::vector<std::int64_t> ids;
  for (const AppNumber app : apps) ids.push_back(store.sketch(app).id);
  return ids;
}

ChartSnapshot snapshotOf(const ChartQuery& query, std::chrono::sys_days day) {
  const ChartType chart = query.chart == Chart::topPaid ? ChartType::topPaid : ChartType::topFree;
  ChartSnapshot snapshot;
  snapshot.platformRaw = textOf(kShelfWords, query.shelf);
  snapshot.chartRaw = textOf(kChartTypeTexts, chart);
  snapshot.country = codeOf(query.storefront);
  snapshot.chartKey =
      chartKey(valueOf(kPlatformWords, snapshot.platformRaw).value(), chart, snapshot.country);
  snapshot.day = day;
  snapshot.capturedAt = day + 9h;
  return snapshot;
}

void recordChart(WriteTransaction& library, const SampleStore& store, const ChartQuery& query) {
  const auto members = chartMembers(store, query);
  std::vector<ChartSnapshot> snapshots;
  for (int ago = kDays; ago > 0; --ago) {
    const std::chrono::sys_days day = store.today() - days(ago);
    auto order = orderOn(day, query, members);
    order.resize(std::min(order.size(), kRecordedPlaces));
    snapshots.push_back(snapshotOf(query, day));
    snapshots.back().trackIds = idsOf(store, order);
  }
  addSnapshots(library, snapshots);
}

/// Nobody opens the page of an app whose name is longer than a line, or no name at all.
bool isInviting(const AppSketch& app) {
  const bool hasControls = std::ranges::any_of(app.name, [](char c) { return c > 0 && c < ' '; });
  return app.ratings > 0 && app.name.size() < kLongestName && !hasControls;
}

std::vector<MetApp> viewedOnes(const SampleStore& store) {
  return bestMet(store, Storefront::us, Shelf::mac, kViewed, isInviting);
}

/// The places in its category that an app's page showed whenever it was opened.
std::vector<RankPoint> ranksOf(const MetApp& app, std::chrono::sys_days today) {
  Random random(mixed(static_cast<std::uint64_t>(app.sketch.id), 45));
  const std::string chart = app.sketch.usCents > 0 ? "Top Paid Apps" : "Top Free Apps";
  int position = random.between(4, 90);
  std::vector<RankPoint> points;
  for (int ago = random.between(30, kDays); ago > 0; ago -= random.between(2, 9)) {
    position = std::max(1, position + random.between(-6, 5));
    points.push_back({0, app.record.trackId, "us", chart,
                      std::string(genreName(app.sketch.genres.front())), position,
                      today - days(ago) + 19h});
  }
  return points;
}

}  // namespace

void writeChartRecord(WriteTransaction& library, const SampleStore& store) {
  for (const Shelf shelf : {Shelf::mac, Shelf::iphone, Shelf::ipad}) {
    for (const Chart chart : {Chart::topFree, Chart::topPaid})
      recordChart(library, store, {.chart = chart, .shelf = shelf});
  }
  std::vector<MetApp> apps = viewedOnes(store);
  apps.resize(std::min(apps.size(), kRanked));
  for (const MetApp& app : apps) addRankPoints(library, ranksOf(app, store.today()));
}

void writeHistory(WriteTransaction& library, const SampleStore& store, Instant now) {
  Random random(46);
  Instant when = now;
  int longest = 45;  // minutes between two pages; the further back, the fewer are remembered
  for (const MetApp& app : viewedOnes(store)) {
    when -= std::chrono::minutes(random.between(3, longest));
    longest += 85;
    recordView(library, cachedAppOf(app.described, sourceOf(app, when)), when);
  }
}

}  // namespace quillet::sandbox
