// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <string>
#include <vector>

#include "analysis/filter_match.h"
#include "cli/online/command_call.h"
#include "cli/online/progress.h"
#include "store/catalog_client.h"

namespace quillet {

/// What a list of apps is examined for.
struct ExaminationCriteria {
  AppFilters filters;
  SortOrder sort = SortOrder::relevance;  ///< what it reads is read too; nothing is sorted here
  std::size_t limit = 1;                  ///< at least 1
  TrackIds ownedTrackIds;
  std::string storefront;
  Instant now;
  UtcOffsetAt timeZone;
  Progress progress;
};

/// What the options of a command ask for. Reads what is owned, where that is left out: before any
/// request, for without it the command cannot answer. Throws CLIError.
[[nodiscard]] ExaminationCriteria criteriaFor(const CLIOptions& options,
                                              const CommandServices& services);

/// The apps that passed, in the order of the list, and how far it was read for them.
struct Examined {
  std::vector<ITunesApp> apps;
  std::vector<std::size_t> positions;  ///< of each app in the list, from 0
  std::size_t scanned = 0;
};

/// Keeps the first `limit` apps of a list that pass the filters. What the records lack (purchases,
/// the Mac build, ratings of Mac apps) is read from the catalog, where a filter or the sort needs
/// it, for those apps alone that pass all other filters, 50 at a time and no further than it takes;
/// requests that are needed in any case are under way together. Throws what the catalog throws.
Task<Examined> examine(std::vector<ITunesApp> apps, ExaminationCriteria criteria,
                       CatalogClient* catalog);

}  // namespace quillet
