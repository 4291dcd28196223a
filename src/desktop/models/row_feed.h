// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QObject>
#include <QPointer>
#include <QTimer>
#include <set>

#include "desktop/models/app_list_model.h"
#include "desktop/models/list_state.h"
#include "desktop/models/row_source.h"
#include "desktop/services/library_gateway.h"
#include "net/clock.h"

namespace quillet {

/// Fills a model from the library and keeps it as the library is: reads all rows, then what is
/// known late piece by piece, and after each change those that it touched. While nobody looks at
/// the rows it only notes what changed. Late answers are dropped.
class RowFeed : public QObject {
  Q_OBJECT

 public:
  /// All outlive the feed.
  RowFeed(LibraryGateway& library, Clock& clock, AppListModel& rows);

  /// Other rows than before; the model is empty until they came.
  void show(RowSource source);
  /// The same rows, read by another source: texts that depend on the day.
  void renew(RowSource source);
  /// Reads all again.
  void refresh();
  /// Nobody looks at the rows any more.
  void rest();
  /// Somebody looks at them again: reads what changed meanwhile.
  void wake();
  /// The apps of the rows that are seen: their price lines are read, and all others forgotten.
  void showExtras(std::set<AppKey> seen);

  [[nodiscard]] const ListState& state() const { return state_; }
  /// Whether the rows were read since show().
  [[nodiscard]] bool isFilled() const { return isFilled_; }
  /// Whether some rows changed that were not read yet.
  [[nodiscard]] bool isBehind() const;

 Q_SIGNALS:
  /// The rows were read, for the first time or again.
  void filled();
  void stateChanged();

 private:
  void take(const LibraryChanges& changes);
  void takeUnknown();
  void note(TouchedRows touched);
  void follow();
  void learn(const std::vector<LateFacts>& facts);
  void addKnown(std::vector<AppRow>& rows) const;
  void readExtras();
  void setState(ListState state);
  void fill(std::vector<AppRow> rows);

  static Task<> readRows(QPointer<RowFeed> feed, int generation);
  static Task<> readRowsOf(QPointer<RowFeed> feed, int generation, std::set<AppKey> apps);
  static Task<> readFacts(QPointer<RowFeed> feed, int generation, std::vector<LateRow> rows);
  static Task<> readLines(QPointer<RowFeed> feed, std::vector<AppKey> apps);

  LibraryGateway& library_;
  Clock& clock_;
  AppListModel& rows_;
  RowSource source_;
  ListState state_ = Ready{};
  int generation_ = 0;  ///< of the reading whose answer counts
  bool isFilled_ = false;
  bool isResting_ = false;
  bool isCatchingUp_ = false;  ///< what changed meanwhile is being read
  TouchedRows touched_;        ///< since they were last asked for
  std::map<AppKey, LateFacts> facts_;
  std::set<AppKey> seen_;
  std::set<AppKey> lined_;  ///< of those seen, whose lines were asked for
  QTimer againTimer_;       ///< changes come in bursts
};

}  // namespace quillet
