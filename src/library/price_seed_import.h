// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <cstddef>
#include <memory>
#include <optional>
#include <string>

#include "library/schema/import_record.h"
#include "library/storefront_seed.h"
#include "library/write_transaction.h"

namespace quillet {

/// What one piece of an import added.
struct SeededPiece {
  std::size_t apps = 0;
  std::size_t points = 0;
};

/// Which apps of a seed: `count` of them from `first` on.
struct SeedPiece {
  std::shared_ptr<const StorefrontSeed> seed;
  std::size_t first = 0;
  std::size_t count = 0;
};

/// Adds the points of some apps, but for the days on which one is recorded, and their deals. Doing
/// it again adds nothing.
SeededPiece importSeedPiece(WriteTransaction& transaction, const SeedPiece& piece);

/// Notes that all of an edition is there, and forgets the deals that it does not name.
void finishSeedImport(WriteTransaction& transaction, const std::string& country,
                      const std::string& stamp, Instant now);

/// Which edition of a storefront's prices was imported last, and when.
[[nodiscard]] std::optional<ImportRecord> seedImportOf(SQLite::Database& database,
                                                       const std::string& country);

/// Whether this edition of a storefront's prices has been imported; one without a stamp never has.
[[nodiscard]] bool isSeedImported(SQLite::Database& database, const std::string& country,
                                  const std::string& stamp);

}  // namespace quillet
