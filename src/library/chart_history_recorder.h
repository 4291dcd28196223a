// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QObject>
#include <string>

#include "library/data_store.h"
#include "library/schema/chart_records.h"
#include "net/clock.h"
#include "store/charts_page_scraper.h"
#include "system/time_zone.h"

namespace quillet {

/// Keeps a daily record of what stands on top of the store: the free and the paid chart of each
/// platform, one snapshot of each a day.
///
/// An object of the event-loop thread; its collaborators outlive it and all passes.
class ChartHistoryRecorder : public QObject {
  Q_OBJECT

 public:
  ChartHistoryRecorder(ChartsPageScraper& pages, DataStore& store, Clock& clock, UtcOffsetAt zone);

  /// Records the storefront's charts that are not recorded today; nothing while a pass runs. A
  /// chart that cannot be read leaves no row, and a stop keeps what was written before it. Throws
  /// DatabaseError.
  Task<> record(std::string storefront, StopToken stop);

  [[nodiscard]] bool isRecording() const { return isRecording_; }

 Q_SIGNALS:
  void recordingChanged();

 private:
  Task<> recordAll(std::string storefront, StopToken stop);
  Task<> recordChart(ChartQuery query, std::optional<std::string>* page, StopToken stop);
  void setRecording(bool isRecording);

  ChartsPageScraper& pages_;
  DataStore& store_;
  Clock& clock_;
  UtcOffsetAt zone_;
  bool isRecording_ = false;
};

}  // namespace quillet
