// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <functional>
#include <map>
#include <optional>
#include <span>
#include <vector>

#include "analysis/recorded_price.h"
#include "desktop/models/row_table.h"
#include "desktop/store_lists/found_apps.h"
#include "desktop/store_lists/known_chart.h"
#include "library/schema/watched_app.h"
#include "system/locale_formats.h"

namespace SQLite {
class Database;
}

namespace quillet {

/// What the library knows of apps that were found.
struct FoundInLibrary {
  TrackIds owned;  ///< of all that are, found or not
  std::map<AppKey, WatchedApp> watched;
  std::map<AppKey, std::vector<RecordedPrice>> prices;
  std::optional<KnownChart> chart;  ///< of the chart that they are
};

/// Runs on the library's thread. `chart`: the one that the apps are; absent for none. `day`: the
/// start of this day.
[[nodiscard]] FoundInLibrary readFoundInLibrary(SQLite::Database& database,
                                                const std::vector<AppKey>& apps,
                                                const std::optional<ChartQuery>& chart,
                                                Instant day);

/// Of each app its key; of one that stands in the answer twice, as a Mac app and as an iPhone app,
/// they differ.
[[nodiscard]] std::vector<RowKey> keysOf(const FoundApps& found);

/// What rows of an answer are made with besides.
struct FoundContext {
  const FoundInLibrary& library;
  const LocaleFormats& formats;
  Instant now{};
};

[[nodiscard]] AppRow foundRow(const ITunesApp& app, const RowKey& key, Platform asked,
                              const FoundContext& context);

/// How a list makes the row of one of the apps that were found.
using FoundRowMaker = std::function<AppRow(const FoundApps& found, std::size_t position,
                                           const RowKey& key, const FoundContext& context)>;

/// The list of Search; its rows come in their order.
[[nodiscard]] RowTable searchTable();

/// The ID of the list's sort, and the other way; relevance where there is none.
[[nodiscard]] std::string sortIdOf(SortOrder sort);
[[nodiscard]] SortOrder sortOfId(std::string_view id);

}  // namespace quillet
