// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QPointer>
#include <QTimer>
#include <map>
#include <set>
#include <vector>

#include "desktop/models/price_lines.h"
#include "desktop/models/row_feed.h"
#include "desktop/models/seen_lookup.h"
#include "desktop/models/view_world.h"
#include "desktop/sections/deals/deal_rows.h"

namespace quillet {

/// The deals of a storefront, as the library picks and orders them: never all, but in pieces as far
/// as somebody scrolls. What changes is read again, in one go after an import.
class DealFeed : public RowFeed {
  Q_OBJECT

 public:
  explicit DealFeed(const ViewWorld& world);

  /// Other deals, or others of them. Those that are shown stay until these came.
  void show(const DealQuery& query);

  void refresh() override;
  void rest() override;
  void wake() override;
  void showUpTo(int row) override;
  void showExtras(std::set<AppKey> seen) override;
  [[nodiscard]] bool isBehind() const override { return isReading_; }

  /// How many there are, and of when; without rows.
  [[nodiscard]] const DealReading& tally() const { return tally_; }

 private:
  using Asides = std::map<AppKey, DealAside>;

  void readAgain();
  void readAgainSoon();
  void fill(std::vector<AppRow> rows);
  void note(const LibraryChanges& changes);
  void noteAll();
  void noteImports();
  [[nodiscard]] bool isTouchedBy(const LibraryChanges& changes) const;
  [[nodiscard]] std::vector<AppKey> rowsTouchedBy(const LibraryChanges& changes) const;
  void take(const std::vector<AppKey>& apps, const Asides& asides);

  static Task<> read(QPointer<DealFeed> feed, int generation, std::size_t pieces);
  static Task<> readMore(QPointer<DealFeed> feed, int generation);
  static Task<> readAsides(QPointer<DealFeed> feed, int generation, std::vector<AppKey> apps);

  ViewWorld world_;
  PriceLines lines_;
  SeenLookup artwork_;
  DealQuery query_;
  DealReading tally_;
  std::set<AppKey> seen_;
  std::size_t pieces_ = 0;  ///< that are there
  int generation_ = 0;      ///< of the reading whose answer counts
  bool isReading_ = false;
  bool isReplacing_ = false;  ///< the rows that are shown are of an earlier question
  bool isResting_ = true;
  bool isStale_ = false;  ///< to be read again once somebody looks, or nothing is imported
  QTimer again_;          ///< changes come in bursts
};

}  // namespace quillet
