// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QPointer>
#include <QTimer>
#include <chrono>
#include <memory>
#include <optional>
#include <set>
#include <span>
#include <vector>

#include "desktop/models/price_lines.h"
#include "desktop/models/row_feed.h"
#include "desktop/models/store_question.h"
#include "desktop/models/view_world.h"
#include "desktop/store_lists/found_rows.h"
#include "desktop/store_lists/store_answer.h"
#include "store/answer_cache.h"

namespace quillet {

/// How many of the apps that were found are shown.
struct FoundTally {
  int shown = 0;
  int all = 0;
  bool isPartial = false;  ///< more may be shown once more is read

  friend bool operator==(const FoundTally&, const FoundTally&) = default;
};

/// Rows of what the store answered to a question, filtered and ordered here. The store is asked
/// once; its answers are kept, with what was read of the catalog into them, so that other filters,
/// other orders and coming back cost nothing. The catalog is read as far as rows are shown. While
/// nobody looks, nothing is asked. A chart that was read is noted in the library.
class StoreFeed : public RowFeed {
  Q_OBJECT

 public:
  /// Without a maker of rows they are those of Search.
  explicit StoreFeed(const ViewWorld& world, FoundRowMaker rowOf = {});

  /// Another question, other filters or another order. Without a question there are no rows.
  void show(const StoreQuery& query);
  /// The user asked for what is shown: asks anew unless the answer is younger.
  void renewIfOlder(std::chrono::minutes age);

  void refresh() override;
  void act(StripAction action) override;
  void rest() override;
  void wake() override;
  void showUpTo(int row) override;
  void showExtras(std::set<AppKey> seen) override;
  [[nodiscard]] int total() const override;
  [[nodiscard]] bool isBehind() const override;

  [[nodiscard]] FoundTally tally() const;
  /// How many of the answer each set of filters would leave; absent where that is not known yet, or
  /// there is no answer.
  [[nodiscard]] std::vector<std::optional<std::size_t>> countsOf(
      std::span<const AppFilters> choices) const;
  /// What is shown, before it is filtered; null without an answer.
  [[nodiscard]] const FoundApps* found() const { return answer_.get(); }
  /// What the library knows of the chart that is shown; null before it was read, or without one.
  [[nodiscard]] const KnownChart* chart() const;
  /// The apps that pass, or may once more is read.
  [[nodiscard]] std::set<std::int64_t> passing() const;
  [[nodiscard]] std::set<std::int64_t> shown() const;

 Q_SIGNALS:
  /// The store answered what is shown, for the first time or again.
  void answered();

 private:
  [[nodiscard]] MatchTerms terms() const;
  [[nodiscard]] const AppFilters& filters() const { return query_.request.filters; }
  [[nodiscard]] ListState stateNow() const;
  [[nodiscard]] bool mayAsk() const { return !isResting_ && isAsked(query_); }

  void ask();
  void take(const StoreAsk& ask, FoundApps found);
  void arrange();
  void fill();
  void readOn();
  void takeRead(const FactReading& reading, const std::vector<ITunesApp>& read);
  void stopReading();
  void followQuestion();
  void followReading();
  void note(const LibraryChanges& changes);
  void readLibrary();
  void showRanks();
  [[nodiscard]] std::optional<ChartQuery> shownChart() const;
  static Task<> noteChart(QPointer<StoreFeed> feed, SeenChart seen, bool isRecorded);
  static Task<> readKnown(QPointer<StoreFeed> feed, int generation, std::vector<AppKey> apps,
                          std::optional<ChartQuery> chart);

  ViewWorld world_;
  FoundRowMaker rowOf_;
  std::shared_ptr<const LocaleFormats> formats_;
  PriceLines lines_;
  StoreQuestion question_;
  StoreQuestion catalog_;
  StoreQuery query_;
  StoreAsk ask_;
  AnswerCache<StoreAsk, std::shared_ptr<FoundApps>> answers_;
  std::shared_ptr<FoundApps> answer_;  ///< of what is shown; null before it came
  FoundRows order_;
  std::optional<FactReading> reading_;  ///< under way, or failed
  int wanted_ = 0;                      ///< rows that are to be there
  std::set<AppKey> seen_;               ///< of a chart, those whose ranks are shown
  bool isResting_ = true;
  bool isWaiting_ = false;  ///< to be asked once somebody looks
  bool isStopped_ = false;  ///< the user wants no more to be read
  std::optional<FoundInLibrary> library_;
  int libraryReading_ = 0;  ///< whose answer counts
  QTimer libraryTimer_;     ///< changes come in bursts
};

}  // namespace quillet
