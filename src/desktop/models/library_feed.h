// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QPointer>
#include <QTimer>
#include <set>

#include "desktop/models/price_lines.h"
#include "desktop/models/row_feed.h"
#include "desktop/models/row_source.h"
#include "desktop/services/library_gateway.h"
#include "net/clock.h"

namespace quillet {

/// Rows of the library, kept as it is: reads all, then what is known late piece by piece, and after
/// each change those that it touched. While nobody looks at the rows it only notes what changed.
/// Late answers are dropped.
class LibraryFeed : public RowFeed {
  Q_OBJECT

 public:
  /// Both outlive the feed.
  LibraryFeed(LibraryGateway& library, Clock& clock);

  /// Other rows than before; the model is empty until they came.
  void show(RowSource source);
  /// The same rows, read by another source: texts that depend on the day.
  void renew(RowSource source);

  void refresh() override;
  void rest() override;
  void wake() override;
  /// Reads the lines of their prices.
  void showExtras(std::set<AppKey> seen) override;
  /// Whether some rows changed that were not read yet.
  [[nodiscard]] bool isBehind() const override;

 private:
  void take(const LibraryChanges& changes);
  void takeUnknown();
  [[nodiscard]] TouchedRows touchedBy(const LibraryChanges& changes) const;
  void note(TouchedRows touched);
  void follow();
  void learn(const std::vector<LateFacts>& facts);
  void addKnown(std::vector<AppRow>& rows) const;
  enum class Order { anew, kept };
  void readAgain(Order order);
  void fill(std::vector<AppRow> rows, Order order);

  static Task<> readRows(QPointer<LibraryFeed> feed, int generation, Order order);
  static Task<> readRowsOf(QPointer<LibraryFeed> feed, int generation, std::set<AppKey> apps);
  static Task<> readFacts(QPointer<LibraryFeed> feed, int generation, std::vector<LateRow> rows);

  LibraryGateway& library_;
  Clock& clock_;
  PriceLines lines_;
  RowSource source_;
  int generation_ = 0;  ///< of the reading whose answer counts
  bool isResting_ = false;
  bool isCatchingUp_ = false;  ///< what changed meanwhile is being read
  TouchedRows touched_;        ///< since they were last asked for
  std::map<AppKey, LateFacts> facts_;
  QTimer againTimer_;  ///< changes come in bursts
};

}  // namespace quillet
