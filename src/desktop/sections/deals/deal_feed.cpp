// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/sections/deals/deal_feed.h"

#include <algorithm>
#include <utility>

#include "desktop/lists/section.h"

namespace quillet {

namespace {

using namespace std::chrono_literals;

constexpr auto kBurst = 250ms;
constexpr std::size_t kPiece = 2000;
constexpr int kAhead = 500;  // rows from the end, where more are read

DealQuery pieceOf(DealQuery query, std::size_t piece) {
  query.first = piece * kPiece;
  query.count = kPiece;
  return query;
}

}  // namespace

DealFeed::DealFeed(const ViewWorld& world)
    : world_(world), lines_(rows_, world.library, world.clock), artwork_(world) {
  again_.setSingleShot(true);
  again_.setInterval(kBurst);
  connect(&again_, &QTimer::timeout, this, &DealFeed::readAgain);
  connect(&world_.library, &LibraryGateway::changed, this, &DealFeed::note);
  connect(&world_.library, &LibraryGateway::changedElsewhere, this, &DealFeed::noteAll);
  connect(&world_.prices, &PriceData::changed, this, &DealFeed::noteImports);
}

void DealFeed::show(const DealQuery& query) {
  if (std::exchange(query_, query) == query && generation_ > 0) return;
  isFilled_ = false;
  isReplacing_ = true;
  pieces_ = 1;
  readAgain();
}

void DealFeed::refresh() { readAgain(); }

void DealFeed::readAgain() {
  again_.stop();
  isStale_ = false;
  isReading_ = true;
  if (!isFilled_) setState(Loading{world_.clock.now()});
  detach(read(this, ++generation_, std::max<std::size_t>(1, pieces_)), "Deals");
}

Task<> DealFeed::read(QPointer<DealFeed> feed, int generation, std::size_t pieces) {
  std::vector<AppRow> rows;
  DealReading reading;
  std::exception_ptr error;
  try {
    for (std::size_t piece = 0; piece < pieces; ++piece) {
      reading = co_await feed->world_.library.read(readDeals, pieceOf(feed->query_, piece),
                                                   rowContext(feed->world_));
      if (feed.isNull() || feed->generation_ != generation) co_return;
      std::ranges::move(reading.rows, std::back_inserter(rows));
      if (reading.rows.size() < kPiece) break;
    }
  } catch (...) {
    error = std::current_exception();
  }
  if (feed.isNull() || feed->generation_ != generation) co_return;
  feed->isReading_ = false;
  if (error) {
    feed->setState(listStateOf(error));
    co_return;
  }
  reading.rows.clear();
  feed->tally_ = std::move(reading);
  feed->fill(std::move(rows));
}

void DealFeed::fill(std::vector<AppRow> rows) {
  pieces_ = std::max<std::size_t>(1, (rows.size() + kPiece - 1) / kPiece);
  isFilled_ = true;
  if (std::exchange(isReplacing_, false)) {
    lines_.forget();
    rows_.reset(std::move(rows));
  } else {
    rows_.arrange(std::move(rows));
  }
  setState(Ready{});
  Q_EMIT filled();
}

void DealFeed::showUpTo(int row) {
  const bool isAll = rows_.rowCount() >= tally_.shown;
  if (!isFilled_ || isReading_ || isAll || row < rows_.rowCount() - kAhead) return;
  isReading_ = true;
  detach(readMore(this, generation_), "More deals");
}

Task<> DealFeed::readMore(QPointer<DealFeed> feed, int generation) {
  const DealQuery query = pieceOf(feed->query_, feed->pieces_);
  DealReading reading;
  try {
    reading = co_await feed->world_.library.read(readDeals, query, rowContext(feed->world_));
  } catch (const std::exception&) {
    reading.shown = -1;
  }
  if (feed.isNull() || feed->generation_ != generation) co_return;
  feed->isReading_ = false;
  if (reading.shown < 0) co_return;
  ++feed->pieces_;
  feed->rows_.append(std::exchange(reading.rows, {}));
  feed->tally_ = std::move(reading);
  Q_EMIT feed->filled();
}

void DealFeed::showExtras(std::set<AppKey> seen) {
  seen_ = std::move(seen);
  lines_.show(seen_);
  std::vector<AppKey> bare;
  for (const AppKey& app : seen_) {
    const int row = rows_.find({app, 0});
    if (row >= 0 && rows_.at(row).artwork.empty()) bare.push_back(app);
  }
  artwork_.want(std::move(bare));
}

void DealFeed::rest() {
  isResting_ = true;
  again_.stop();
  artwork_.want({});
}

void DealFeed::wake() {
  if (std::exchange(isResting_, false) && isStale_) readAgain();
}

void DealFeed::noteAll() {
  lines_.noteAll();
  readAgainSoon();
}

/// Of an import one waits for the end: it changes deals a hundred times.
void DealFeed::readAgainSoon() {
  isStale_ = true;
  if (isResting_ || generation_ == 0 || again_.isActive()) return;
  if (!world_.prices.stateOf(query_.country).isReading) again_.start();
}

void DealFeed::noteImports() {
  if (isStale_) readAgainSoon();
}

bool DealFeed::isTouchedBy(const LibraryChanges& changes) const {
  return changes.deals.contains(query_.country) || !changes.imports.empty() ||
         (query_.pick.isWatched && !changes.watchedApps.empty()) ||
         (query_.pick.isInChart && !changes.charts.empty());
}

std::vector<AppKey> DealFeed::rowsTouchedBy(const LibraryChanges& changes) const {
  std::vector<AppKey> touched;
  for (const auto* apps : {&changes.watchedApps, &changes.cachedApps}) {
    for (const AppKey& app : *apps) {
      if (rows_.holds(app)) touched.push_back(app);
    }
  }
  return touched;
}

void DealFeed::note(const LibraryChanges& changes) {
  lines_.note(changes);
  if (!isResting_) lines_.follow();
  if (isTouchedBy(changes)) return readAgainSoon();
  std::vector<AppKey> touched = rowsTouchedBy(changes);
  if (!touched.empty()) detach(readAsides(this, generation_, std::move(touched)), "Deals");
}

Task<> DealFeed::readAsides(QPointer<DealFeed> feed, int generation, std::vector<AppKey> apps) {
  const Asides asides = co_await feed->world_.library.read(readDealAsides, apps);
  if (!feed.isNull() && feed->generation_ == generation) feed->take(apps, asides);
}

void DealFeed::take(const std::vector<AppKey>& apps, const Asides& asides) {
  std::vector<AppRow> changed;
  for (const AppKey& app : apps) {
    const int place = rows_.find({app, 0});
    if (place < 0) continue;
    AppRow row = rows_.at(place);
    const auto aside = asides.find(app);
    takeAside(row, aside == asides.end() ? DealAside() : aside->second);
    changed.push_back(std::move(row));
  }
  rows_.setRowsOf({apps.begin(), apps.end()}, std::move(changed));
  Q_EMIT filled();
}

}  // namespace quillet
