// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/models/library_feed.h"

#include <algorithm>
#include <utility>

#include "library/price_series.h"

namespace quillet {

namespace {

using namespace std::chrono_literals;

constexpr auto kBurst = 250ms;           // of changes that are answered by reading all again
constexpr std::size_t kLatePiece = 500;  // keeps the library's thread free for whoever waits

std::vector<AppRow> runAll(SQLite::Database& database, const RowSource& source) {
  return source.all(database);
}

/// Rows that changed, and what is known of them late: at once, or it would be away for a moment.
struct ChangedRows {
  std::vector<AppRow> rows;
  std::vector<LateFacts> facts;
};

ChangedRows runOfApps(SQLite::Database& database, const RowSource& source,
                      const std::vector<AppKey>& apps) {
  ChangedRows changed{source.ofApps(database, apps), {}};
  if (!source.late) return changed;
  std::vector<LateRow> late;
  for (const AppRow& row : changed.rows) late.push_back({row.key.app, row.added});
  changed.facts = source.late(database, late);
  return changed;
}

std::vector<LateFacts> runLate(SQLite::Database& database, const RowSource& source,
                               const std::vector<LateRow>& rows) {
  return source.late(database, rows);
}

}  // namespace

LibraryFeed::LibraryFeed(LibraryGateway& library, Clock& clock)
    : library_(library), clock_(clock), lines_(rows_, library, clock) {
  againTimer_.setSingleShot(true);
  againTimer_.setInterval(kBurst);
  connect(&againTimer_, &QTimer::timeout, this, [this] { readAgain(Order::kept); });
  connect(&library, &LibraryGateway::changed, this, &LibraryFeed::take);
  connect(&library, &LibraryGateway::changedElsewhere, this, &LibraryFeed::takeUnknown);
}

void LibraryFeed::show(RowSource source) {
  source_ = std::move(source);
  isFilled_ = false;
  lines_.forget();
  facts_.clear();
  rows_.reset({});
  refresh();
}

void LibraryFeed::renew(RowSource source) {
  source_ = std::move(source);
  refresh();
}

void LibraryFeed::refresh() { readAgain(Order::anew); }

void LibraryFeed::readAgain(Order order) {
  againTimer_.stop();
  touched_ = NoRows{};
  if (!isFilled_) setState(Loading{clock_.now()});
  detach(readRows(this, ++generation_, order), "A list");
}

void LibraryFeed::showExtras(std::set<AppKey> seen) { lines_.show(std::move(seen)); }

void LibraryFeed::rest() {
  isResting_ = true;
  againTimer_.stop();
}

void LibraryFeed::wake() {
  if (!std::exchange(isResting_, false) || !isBehind()) return;
  isCatchingUp_ = true;
  follow();
  if (againTimer_.isActive()) refresh();  // of this burst there will be no more
}

bool LibraryFeed::isBehind() const {
  return isCatchingUp_ || !std::holds_alternative<NoRows>(touched_);
}

void LibraryFeed::take(const LibraryChanges& changes) {
  lines_.note(changes);
  if (source_.touched) note(touchedBy(changes));
  follow();
}

/// An import brings prices of thousands of apps, of which the list may have a few: a price adds no
/// row.
TouchedRows LibraryFeed::touchedBy(const LibraryChanges& changes) const {
  if (changes.prices.size() <= kLatePiece) return source_.touched(changes);
  LibraryChanges known = changes;
  std::erase_if(known.prices, [this](const AppKey& app) { return !rows_.holds(app); });
  return source_.touched(known);
}

/// Another program changed anything.
void LibraryFeed::takeUnknown() {
  lines_.noteAll();
  if (source_.all) note(AllRows{});
  follow();
}

void LibraryFeed::note(TouchedRows touched) {
  auto* more = std::get_if<std::set<AppKey>>(&touched);
  if (std::holds_alternative<NoRows>(touched) || (more != nullptr && more->empty())) return;
  auto* known = std::get_if<std::set<AppKey>>(&touched_);
  if (known != nullptr && more != nullptr) {
    known->merge(*more);
  } else {
    touched_ = std::holds_alternative<NoRows>(touched_) ? std::move(touched) : AllRows{};
  }
}

/// Reads what changed: of few apps their rows at once, else all that there are, in a moment.
void LibraryFeed::follow() {
  if (isResting_) return;
  lines_.follow();
  if (std::holds_alternative<NoRows>(touched_)) return;
  const auto* apps = std::get_if<std::set<AppKey>>(&touched_);
  if (apps != nullptr && source_.ofApps && apps->size() <= kLatePiece) {
    detach(readRowsOf(this, generation_, *apps), "Changed rows");
    touched_ = NoRows{};
  } else if (!againTimer_.isActive()) {
    againTimer_.start();
  }
}

Task<> LibraryFeed::readRows(QPointer<LibraryFeed> feed, int generation, Order order) {
  std::vector<AppRow> rows;
  std::exception_ptr error;
  try {
    rows = co_await feed->library_.read(runAll, feed->source_);
  } catch (...) {
    error = std::current_exception();
  }
  if (feed.isNull() || feed->generation_ != generation) co_return;
  feed->isCatchingUp_ = false;
  if (error) {
    feed->setState(listStateOf(error));
  } else {
    feed->fill(std::move(rows), order);
  }
}

void LibraryFeed::fill(std::vector<AppRow> rows, Order order) {
  for (AppRow& row : rows) {
    const int shown = order == Order::kept && source_.stay ? rows_.find(row.key) : -1;
    if (shown >= 0) source_.stay(row, rows_.at(shown));
  }
  // What was known of a row holds until it is read again: rows do not flicker.
  addKnown(rows);
  if (std::exchange(isFilled_, true)) {
    rows_.setRows(std::move(rows));
  } else {
    rows_.reset(std::move(rows));
  }
  setState(Ready{});
  Q_EMIT filled();
  if (source_.late) detach(readFacts(this, generation_, rows_.lateRows()), "Facts of rows");
}

void LibraryFeed::learn(const std::vector<LateFacts>& facts) {
  for (const LateFacts& each : facts) facts_.insert_or_assign(each.app, each);
}

void LibraryFeed::addKnown(std::vector<AppRow>& rows) const {
  for (AppRow& row : rows) {
    const auto known = facts_.find(row.key.app);
    if (known != facts_.end()) source_.take(row, known->second);
  }
}

Task<> LibraryFeed::readRowsOf(QPointer<LibraryFeed> feed, int generation, std::set<AppKey> apps) {
  const std::vector<AppKey> asked(apps.begin(), apps.end());
  ChangedRows changed = co_await feed->library_.read(runOfApps, feed->source_, asked);
  // A reading of all that began meanwhile sees this change too.
  if (feed.isNull() || feed->generation_ != generation || !feed->isFilled_) co_return;
  feed->isCatchingUp_ = false;
  feed->learn(changed.facts);
  feed->addKnown(changed.rows);
  feed->rows_.setRowsOf(apps, std::move(changed.rows));
  Q_EMIT feed->filled();
}

Task<> LibraryFeed::readFacts(QPointer<LibraryFeed> feed, int generation,
                              std::vector<LateRow> rows) {
  for (std::size_t first = 0; first < rows.size(); first += kLatePiece) {
    const auto begin = rows.begin() + static_cast<std::ptrdiff_t>(first);
    const std::size_t count = std::min(kLatePiece, rows.size() - first);
    const std::vector<LateRow> piece(begin, begin + static_cast<std::ptrdiff_t>(count));
    const auto facts = co_await feed->library_.read(runLate, feed->source_, piece);
    if (feed.isNull() || feed->generation_ != generation) co_return;
    feed->rows_.take(facts, feed->source_.take);
    feed->learn(facts);
  }
}

}  // namespace quillet
