// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <set>
#include <string>

#include "library/app_key.h"
#include "library/schema/table.h"

namespace quillet {

/// What one committed change touched, by key: rows added, edited and removed alike.
struct LibraryChanges {
  std::set<AppKey> watchedApps;
  std::set<AppKey> ownedApps;
  std::set<AppKey> cachedApps;
  std::set<AppKey> prices;          ///< whose recorded prices grew
  std::set<AppKey> purchasePrices;  ///< whose recorded in-app prices grew
  std::set<AppKey> ranks;
  std::set<RowId> collections;  ///< themselves or their entries
  std::set<RowId> savedSearches;
  std::set<RowId> alerts;
  std::set<std::string> charts;   ///< chart keys, recorded or fetched
  std::set<std::string> deals;    ///< storefronts
  std::set<std::string> imports;  ///< keys of import records

  friend bool operator==(const LibraryChanges&, const LibraryChanges&) = default;
};

}  // namespace quillet
