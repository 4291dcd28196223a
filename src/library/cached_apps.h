// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <cstdint>
#include <vector>

#include "library/cached_summary.h"
#include "library/removed_rows.h"

namespace quillet {

[[nodiscard]] std::vector<CachedApp> cachedAppsOf(SQLite::Database& database,
                                                  const std::vector<AppKey>& apps);

/// The apps whose pages were opened, the last one first.
[[nodiscard]] std::vector<CachedSummary> viewedApps(SQLite::Database& database, std::int64_t limit);

/// Takes in what a lookup brought: refreshes cached apps, and adds those that are watched or owned.
/// What only a page knows (the histogram, flags of purchases, badge, tagline, architecture,
/// device families) stays where the lookup says nothing of it; so does the last view.
void refreshCachedApps(WriteTransaction& transaction, const std::vector<CachedApp>& apps);

/// The same, and adds them all: apps that some list shows which is not the user's.
void keepCachedApps(WriteTransaction& transaction, const std::vector<CachedApp>& apps);

/// Takes in an app whose page was opened, and notes the view.
void recordView(WriteTransaction& transaction, const CachedApp& app, Instant viewedAt);

/// Forgets that these apps, or any, were viewed; the cached records stay.
RemovedRows forgetViews(WriteTransaction& transaction, const std::vector<AppKey>& apps);
RemovedRows forgetAllViews(WriteTransaction& transaction);

}  // namespace quillet
