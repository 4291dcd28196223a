// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/models/price_lines.h"

#include <algorithm>
#include <utility>

#include "library/price_series.h"

namespace quillet {

namespace {

std::map<AppKey, RowExtras> readLines(SQLite::Database& database, const std::vector<AppKey>& apps,
                                      Instant now) {
  std::map<AppKey, RowExtras> extras;
  for (const AppPriceSeries& series : priceSeriesOf(database, apps))
    extras[series.key] = extrasOf(series, now);
  return extras;
}

}  // namespace

PriceLines::PriceLines(AppListModel& rows, LibraryGateway& library, Clock& clock)
    : rows_(rows), library_(library), clock_(clock) {}

void PriceLines::show(std::set<AppKey> seen) {
  seen_ = std::move(seen);
  follow();
}

void PriceLines::forget() {
  seen_.clear();
  asked_.clear();
}

void PriceLines::note(const LibraryChanges& changes) {
  for (const AppKey& app : changes.prices) asked_.erase(app);
}

void PriceLines::noteAll() { asked_.clear(); }

void PriceLines::follow() {
  rows_.keepExtras(seen_);
  std::erase_if(asked_, [&](const AppKey& app) { return !seen_.contains(app); });
  std::vector<AppKey> wanted;
  std::ranges::set_difference(seen_, asked_, std::back_inserter(wanted));
  if (wanted.empty()) return;
  asked_ = seen_;
  detach(read(this, std::move(wanted)), "Lines of prices");
}

Task<> PriceLines::read(QPointer<PriceLines> lines, std::vector<AppKey> apps) {
  const Instant now = lines->clock_.now();
  auto extras = co_await lines->library_.read(readLines, std::move(apps), now);
  if (!lines.isNull()) lines->rows_.setExtras(std::move(extras));
}

}  // namespace quillet
