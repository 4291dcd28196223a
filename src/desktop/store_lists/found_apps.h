// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "analysis/filter_verdict.h"
#include "analysis/sorting.h"
#include "desktop/models/list_state.h"

namespace quillet {

/// What the store answered to one question, in its order, and what was read of the catalog into
/// the records since.
struct FoundApps {
  std::vector<ITunesApp> apps;
  std::vector<CatalogReads> reads;  ///< of each of them
  std::string country;
  Platform platform = Platform::mac;  ///< that was asked for
  Instant asOf{};
  Instant readsSince{};  ///< since when the catalog was read into them
  /// Of a chart, the place of each of them, from 1, and the whole order, with those whose records
  /// the storefront does not have.
  std::vector<std::size_t> ranks = {};
  std::vector<std::int64_t> chart = {};
};

[[nodiscard]] FoundApps foundApps(std::vector<ITunesApp> apps, std::string country,
                                  Platform platform, Instant asOf);

/// A later answer to the same question: takes over what was read into the apps of the earlier one,
/// so that nothing of what is shown has to be read again at once.
void takeReads(FoundApps& later, const FoundApps& earlier);

/// What to ask the catalog next, of at most kCatalogBatch apps.
struct FactReading {
  FactKind what = FactKind::purchases;
  std::vector<std::size_t> positions;  ///< in the answer
  std::size_t done = 0;                ///< apps of which it was asked
  std::size_t total = 0;               ///< with those of which it would have to be

  friend bool operator==(const FactReading&, const FactReading&) = default;
};

/// The apps that pass, in the order of the sort, as far as that can be told.
struct FoundRows {
  /// Positions in the answer, up to the first app that waits for what is to be read.
  std::vector<std::size_t> positions;
  bool isPartial = false;  ///< whether there is such an app
  /// What is to be read for more rows, or for their order; absent where all is told.
  std::optional<FactReading> next;
  /// Whether what is to be read next may still change their order.
  bool isOrderOpen = false;
};

/// Judges and orders the answer as the command line does. An order by ratings needs those of all
/// apps that may pass: they are what is read first, and meanwhile the order is the one of the
/// ratings that are known.
[[nodiscard]] FoundRows rowsOf(const FoundApps& found, const AppFilters& filters, SortOrder sort,
                               const MatchTerms& terms, const NameOrder& nameOrder);

/// The records that such a reading asks about, without what it does not need.
[[nodiscard]] std::vector<ITunesApp> askedOf(const FoundApps& found, const FactReading& reading);

/// Takes in what was read into these.
void takeFacts(FoundApps& found, const FactReading& reading, const std::vector<ITunesApp>& read);

}  // namespace quillet
