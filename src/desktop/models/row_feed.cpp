// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/models/row_feed.h"

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

std::vector<AppRow> runOfApps(SQLite::Database& database, const RowSource& source,
                              const std::vector<AppKey>& apps) {
  std::vector<AppRow> rows = source.ofApps(database, apps);
  if (!source.late) return rows;
  // At once: a row that changed would lose what was known of it for a moment.
  for (const LateFacts& facts : source.late(database, apps)) {
    const auto row = std::ranges::find(rows, RowKey{facts.app}, &AppRow::key);
    if (row != rows.end()) source.take(*row, facts);
  }
  return rows;
}

std::vector<LateFacts> runLate(SQLite::Database& database, const RowSource& source,
                               const std::vector<AppKey>& apps) {
  return source.late(database, apps);
}

std::map<AppKey, RowExtras> runLines(SQLite::Database& database, const std::vector<AppKey>& apps,
                                     Instant now) {
  std::map<AppKey, RowExtras> extras;
  for (const AppPriceSeries& series : priceSeriesOf(database, apps))
    extras[series.key] = extrasOf(series, now);
  return extras;
}

}  // namespace

RowFeed::RowFeed(LibraryGateway& library, Clock& clock, AppListModel& rows)
    : library_(library), clock_(clock), rows_(rows) {
  againTimer_.setSingleShot(true);
  againTimer_.setInterval(kBurst);
  connect(&againTimer_, &QTimer::timeout, this, &RowFeed::refresh);
  connect(&library, &LibraryGateway::changed, this, &RowFeed::take);
  connect(&library, &LibraryGateway::changedElsewhere, this, &RowFeed::takeAll);
}

void RowFeed::show(RowSource source) {
  source_ = std::move(source);
  isFilled_ = false;
  seen_.clear();
  lined_.clear();
  facts_.clear();
  rows_.reset({});
  refresh();
}

void RowFeed::renew(RowSource source) {
  source_ = std::move(source);
  refresh();
}

void RowFeed::refresh() {
  againTimer_.stop();
  if (!isFilled_) setState(Loading{clock_.now()});
  detach(readRows(this, ++generation_), "A list");
}

void RowFeed::showExtras(std::set<AppKey> seen) {
  seen_ = std::move(seen);
  readExtras();
}

void RowFeed::take(const LibraryChanges& changes) {
  for (const AppKey& app : changes.prices) lined_.erase(app);
  if (!changes.prices.empty()) readExtras();
  if (!source_.touched) return;
  const TouchedRows touched = source_.touched(changes);
  if (const auto* apps = std::get_if<std::set<AppKey>>(&touched); apps && source_.ofApps) {
    if (!apps->empty()) detach(readRowsOf(this, generation_, *apps), "Changed rows");
  } else if (!std::holds_alternative<NoRows>(touched) && !againTimer_.isActive()) {
    againTimer_.start();
  }
}

/// Anything may be different, of a list that was shown at all.
void RowFeed::takeAll() {
  if (!source_.all) return;
  lined_.clear();
  readExtras();
  if (!againTimer_.isActive()) againTimer_.start();
}

Task<> RowFeed::readRows(QPointer<RowFeed> feed, int generation) {
  std::vector<AppRow> rows;
  std::exception_ptr error;
  try {
    rows = co_await feed->library_.read(runAll, feed->source_);
  } catch (...) {
    error = std::current_exception();
  }
  if (feed.isNull() || feed->generation_ != generation) co_return;
  if (error) {
    feed->setState(listStateOf(error));
  } else {
    feed->fill(std::move(rows));
  }
}

void RowFeed::fill(std::vector<AppRow> rows) {
  // What was known of a row holds until it is read again: rows do not flicker.
  for (AppRow& row : rows) {
    const auto known = facts_.find(row.key.app);
    if (known != facts_.end()) source_.take(row, known->second);
  }
  if (std::exchange(isFilled_, true)) {
    rows_.setRows(std::move(rows));
  } else {
    rows_.reset(std::move(rows));
  }
  setState(Ready{});
  Q_EMIT filled();
  if (source_.late) detach(readFacts(this, generation_, rows_.apps()), "Facts of rows");
}

Task<> RowFeed::readRowsOf(QPointer<RowFeed> feed, int generation, std::set<AppKey> apps) {
  const std::vector<AppKey> asked(apps.begin(), apps.end());
  std::vector<AppRow> rows = co_await feed->library_.read(runOfApps, feed->source_, asked);
  // A reading of all that began meanwhile sees this change too.
  if (feed.isNull() || feed->generation_ != generation || !feed->isFilled_) co_return;
  feed->rows_.setRowsOf(apps, std::move(rows));
  Q_EMIT feed->filled();
}

Task<> RowFeed::readFacts(QPointer<RowFeed> feed, int generation, std::vector<AppKey> apps) {
  for (std::size_t first = 0; first < apps.size(); first += kLatePiece) {
    const auto begin = apps.begin() + static_cast<std::ptrdiff_t>(first);
    const std::size_t count = std::min(kLatePiece, apps.size() - first);
    const std::vector<AppKey> piece(begin, begin + static_cast<std::ptrdiff_t>(count));
    const auto facts = co_await feed->library_.read(runLate, feed->source_, piece);
    if (feed.isNull() || feed->generation_ != generation) co_return;
    feed->rows_.take(facts, feed->source_.take);
    for (const LateFacts& each : facts) feed->facts_.insert_or_assign(each.app, each);
  }
}

void RowFeed::readExtras() {
  rows_.keepExtras(seen_);
  std::erase_if(lined_, [&](const AppKey& app) { return !seen_.contains(app); });
  std::vector<AppKey> wanted;
  std::ranges::set_difference(seen_, lined_, std::back_inserter(wanted));
  if (wanted.empty()) return;
  lined_ = seen_;
  detach(readLines(this, std::move(wanted)), "Lines of prices");
}

Task<> RowFeed::readLines(QPointer<RowFeed> feed, std::vector<AppKey> apps) {
  const Instant now = feed->clock_.now();
  auto extras = co_await feed->library_.read(runLines, std::move(apps), now);
  if (!feed.isNull()) feed->rows_.setExtras(std::move(extras));
}

void RowFeed::setState(ListState state) {
  state_ = std::move(state);
  Q_EMIT stateChanged();
}

}  // namespace quillet
