// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "library/chart_history_recorder.h"

#include <exception>
#include <optional>

#include "analysis/calendar.h"
#include "base/errors.h"
#include "library/chart_orders.h"
#include "store/records/chart_answers.h"

namespace quillet {

namespace {

/// Only these two are on the store's pages.
constexpr auto kRecordedCharts = {ChartType::topFree, ChartType::topPaid};

/// Empty also where no answer came: the next pass tries its charts again.
Task<std::string> readPage(ChartsPageScraper* pages, ChartQuery query, StopToken stop) {
  RequestContext context{RequestClass::background, std::move(stop)};
  try {
    co_return co_await pages->page(std::move(query), std::move(context));
  } catch (const NetworkError&) {
    co_return std::string();
  }
}

}  // namespace

ChartHistoryRecorder::ChartHistoryRecorder(ChartsPageScraper& pages, DataStore& store, Clock& clock,
                                           UtcOffsetAt zone)
    : pages_(pages), store_(store), clock_(clock), zone_(std::move(zone)) {}

Task<> ChartHistoryRecorder::record(std::string storefront, StopToken stop) {
  if (isRecording_) co_return;
  setRecording(true);
  std::exception_ptr failure;
  try {
    co_await recordAll(std::move(storefront), std::move(stop));
  } catch (...) {
    failure = std::current_exception();
  }
  setRecording(false);
  if (failure) std::rethrow_exception(failure);
}

Task<> ChartHistoryRecorder::recordAll(std::string storefront, StopToken stop) {
  for (const auto& [platform, word] : kPlatformWords) {
    std::optional<std::string> page;  // one for both charts, asked for when the first needs it
    for (const ChartType chart : kRecordedCharts) {
      if (stop.stopRequested()) co_return;
      co_await recordChart({chart, platform, storefront, {}}, &page, stop);
    }
  }
}

Task<> ChartHistoryRecorder::recordChart(ChartQuery query, std::optional<std::string>* page,
                                         StopToken stop) {
  const Instant today = startOfDay(clock_.now(), zone_);
  if (co_await store_.read(isRecorded, chartKey(query), today)) co_return;
  if (!*page) *page = co_await readPage(&pages_, query, std::move(stop));
  auto trackIds = decodeChartPage(**page, query.chart);
  if (trackIds.empty()) co_return;
  const std::vector snapshots{
      snapshotOf({std::move(query), std::move(trackIds), clock_.now(), today})};
  co_await store_.change(addSnapshots, snapshots);
}

void ChartHistoryRecorder::setRecording(bool isRecording) {
  isRecording_ = isRecording;
  Q_EMIT recordingChanged();
}

}  // namespace quillet
