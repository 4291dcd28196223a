// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "library/price_seed_import.h"

#include <algorithm>
#include <span>

#include "library/deals.h"
#include "library/import_records.h"
#include "library/recorded_history.h"

namespace quillet {
namespace {

// Stored; never change.
std::string importKey(const std::string& country) { return "prices-" + country; }

void addPoints(std::vector<PricePoint>& rows, const StorefrontSeed& seed,
               const StorefrontSeed::App& app) {
  PricePoint row{0, app.trackId, seed.country, 0, app.currency, {}, true};
  for (const PriceSeed::Point& point :
       std::span(seed.points).subspan(app.firstPoint, app.pointCount)) {
    row.price = point.price;
    row.date = point.day;
    rows.push_back(row);
  }
}

}  // namespace

SeededPiece importSeedPiece(WriteTransaction& transaction, const SeedPiece& piece) {
  const StorefrontSeed& seed = *piece.seed;
  std::vector<PricePoint> points;
  std::vector<Deal> deals;
  for (const StorefrontSeed::App& app : std::span(seed.apps).subspan(piece.first, piece.count)) {
    addPoints(points, seed, app);
    if (app.deal) deals.push_back(*app.deal);
  }
  const std::size_t before = transaction.changes.prices.size();
  const std::size_t added = importPricePoints(transaction, points);
  keepDeals(transaction, deals);
  return {transaction.changes.prices.size() - before, added};
}

void finishSeedImport(WriteTransaction& transaction, const std::string& country,
                      const std::string& stamp, Instant now) {
  forgetOtherEditions(transaction, country, stamp);
  recordImport(transaction, {0, importKey(country), stamp, now});
}

std::optional<ImportRecord> seedImportOf(SQLite::Database& database, const std::string& country) {
  return importRecord(database, importKey(country));
}

bool isSeedImported(SQLite::Database& database, const std::string& country,
                    const std::string& stamp) {
  const auto record = seedImportOf(database, country);
  return record && !stamp.empty() && record->stamp == stamp;
}

}  // namespace quillet
