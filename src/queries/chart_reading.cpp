// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "queries/chart_reading.h"

#include "queries/either_stop.h"

namespace quillet {

namespace {

/// What the steps of one reading share.
struct Round {
  ChartQuery chart;
  ExaminationCriteria criteria;
  QueryServices services;
  QueryCall call;  ///< as it came: an examination tells its stop from the gentle one itself
  RowWatch watch;
  RequestContext context = {};  ///< of requests to the charts, which both stops end
  ChartReading reading = {};

  [[nodiscard]] std::size_t wanted() const { return criteria.limit - reading.apps.size(); }
};

/// How many places must be looked up whatever the filters say: fewer cannot fill `wanted`. Whole
/// lookups, for asking for 100 costs no more than asking for one.
std::size_t surelyLookedUp(std::size_t wanted) {
  return (wanted + kLookupBatch - 1) / kLookupBatch * kLookupBatch;
}

/// Adds those of some places that pass.
Task<> keepMatches(Round* round, std::vector<RankedApp> ranked) {
  std::vector<ITunesApp> apps;
  std::vector<std::size_t> ranks;
  for (RankedApp& entry : ranked) {
    apps.push_back(std::move(entry.app));
    ranks.push_back(entry.rank);
  }
  ExaminationCriteria criteria = round->criteria;
  criteria.limit = round->wanted();
  RowWatch watch{.found = {}, .enough = round->watch.enough};
  if (round->watch.found) {
    watch.found = [round, &ranks](const ITunesApp& app, std::size_t position) {
      round->watch.found(app, ranks[position] - 1);
    };
  }
  Examined examined = co_await examine(std::move(apps), std::move(criteria), round->services,
                                       round->call, std::move(watch));
  for (std::size_t i = 0; i < examined.apps.size(); ++i) {
    round->reading.apps.push_back(std::move(examined.apps[i]));
    round->reading.ranks.push_back(ranks[examined.positions[i]]);
  }
  round->reading.scanned += examined.scanned;
}

Task<> run(Round* round) {
  const QueryCall& call = round->call;
  ChartsService& charts = round->services.charts;
  call.report({QueryStage::chart});
  const std::vector<std::int64_t> ids = co_await charts.ids(round->chart, round->context);
  // Without filters the first places are the answer, if the store knows their apps.
  const bool unfiltered = activeCount(round->criteria.filters) == 0;
  ChartPlaces places{0, unfiltered ? round->wanted() : surelyLookedUp(round->wanted())};
  while (places.first < ids.size() && round->wanted() > 0 && !round->watch.enough.stopRequested()) {
    call.report({QueryStage::chart, places.first, ids.size()});
    std::vector<RankedApp> ranked = co_await charts.apps(round->chart, ids, places, round->context);
    co_await keepMatches(round, std::move(ranked));
    places = {places.first + places.count, surelyLookedUp(round->wanted())};
  }
}

}  // namespace

Task<ChartReading> readChart(ChartQuery chart, ExaminationCriteria criteria, QueryServices services,
                             QueryCall call, RowWatch watch) {
  const StopToken stop = call.context.stop;
  const EitherStop either(stop, watch.enough);
  Round round{std::move(chart), std::move(criteria), services, std::move(call), std::move(watch)};
  round.context = round.call.context;
  round.context.stop = either.token();
  try {
    co_await run(&round);
  } catch (...) {
    if (stop.stopRequested() || !round.watch.enough.stopRequested()) throw;
  }
  co_return std::move(round.reading);
}

}  // namespace quillet
