// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <functional>
#include <string>
#include <vector>

#include "analysis/filter_match.h"
#include "queries/query_call.h"

namespace quillet {

/// What of the catalog is read into records that lack it.
struct CatalogNeeds {
  bool purchases = false;  ///< what is sold inside, of every app
  bool build = false;      ///< how Mac apps are compiled
  bool ratings = false;    ///< of Mac apps whose records do not know them
};

/// What a set of filters and a sort order need.
[[nodiscard]] CatalogNeeds catalogNeedsOf(const AppFilters& filters, SortOrder sort);

/// Reads into the records what they need, kCatalogBatch at a time, with all requests under way
/// together; what the catalog does not know stays unknown. Tells how many requests were answered.
/// Throws what the catalog throws, once all have ended.
Task<std::vector<ITunesApp>> readCatalogFacts(std::vector<ITunesApp> apps, CatalogNeeds needs,
                                              std::string storefront, QueryServices services,
                                              QueryCall call);

/// What a list of apps is examined for.
struct ExaminationCriteria {
  AppFilters filters;
  SortOrder sort = SortOrder::relevance;  ///< what it reads is read too; nothing is sorted here
  std::size_t limit = 1;                  ///< at least 1
  TrackIds ownedTrackIds;
  std::string storefront;
  Instant now;
  UtcOffsetAt timeZone;
};

/// Someone who watches the rows come.
struct RowWatch {
  /// Told of each app as soon as it and all before it are judged, in the order of the list, with
  /// its position there, from 0. What the sort alone reads may still be missing. Empty where nobody
  /// watches.
  std::function<void(const ITunesApp& app, std::size_t position)> found = {};
  /// Ends the question gently: nothing more is read, and the answer is what was found by then. (The
  /// stop of a QueryCall wants no answer: it throws.)
  StopToken enough = {};
};

/// The apps that passed, in the order of the list, and how far it was read for them.
struct Examined {
  std::vector<ITunesApp> apps;
  std::vector<std::size_t> positions;  ///< of each app in the list, from 0
  std::size_t scanned = 0;
  std::vector<ITunesApp> none;  ///< where none passed: the list, with what was read into it
};

/// Keeps the first `limit` apps of a list that pass the filters. What the records lack (purchases,
/// the Mac build, ratings of Mac apps) is read from the catalog, where a filter or the sort needs
/// it, for those apps alone that pass all other filters, kCatalogBatch at a time and no further
/// than it takes; requests that are needed in any case are under way together. Throws what the
/// catalog throws.
Task<Examined> examine(std::vector<ITunesApp> apps, ExaminationCriteria criteria,
                       QueryServices services, QueryCall call, RowWatch watch);

}  // namespace quillet
