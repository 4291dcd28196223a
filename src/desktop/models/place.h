// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QJsonObject>
#include <QString>
#include <compare>
#include <optional>
#include <string>
#include <variant>
#include <vector>

#include "analysis/search_command_line.h"
#include "base/enum_table.h"
#include "library/app_key.h"
#include "library/schema/table.h"
#include "store/records/chart_type.h"

namespace quillet {

/// The rooms of the window.
enum class SectionId {
  search,
  charts,
  deals,
  watchlist,
  alerts,
  collections,
  myApps,
  history,
  compare,
};

// Stored and taken by --section; never change.
inline constexpr EnumTable<SectionId, 9> kSectionWords{{
    {SectionId::search, "search"},
    {SectionId::charts, "charts"},
    {SectionId::deals, "deals"},
    {SectionId::watchlist, "watchlist"},
    {SectionId::alerts, "alerts"},
    {SectionId::collections, "collections"},
    {SectionId::myApps, "my-apps"},
    {SectionId::history, "history"},
    {SectionId::compare, "compare"},
}};
static_assert(isComplete(kSectionWords, SectionId::compare));

/// What tells the rows of one list apart. Where an app may stand in several (alerts), the
/// database's row does; it is 0 elsewhere. A row that is no app's (a collection) has no app.
struct RowKey {
  AppKey app;
  RowId row = 0;

  friend auto operator<=>(const RowKey&, const RowKey&) = default;
};

/// Which of a list's rows are shown, and in what order.
struct RowView {
  QString text;                    ///< what was typed to find rows
  std::vector<std::string> chips;  ///< those that are set, by ID; rows must satisfy all
  std::string sort;                ///< an ID; empty for the list's first

  friend bool operator==(const RowView&, const RowView&) = default;
};

/// Where a list is scrolled to.
struct RowAnchor {
  RowKey first;    ///< the uppermost row that is seen
  int offset = 0;  ///< how many of its pixels are above the edge

  friend bool operator==(const RowAnchor&, const RowAnchor&) = default;
};

/// Whether the app's page stands beside the list, where there is room for both, or in its place.
enum class PageSpan { beside, alone };

/// One developer's apps in a storefront.
struct Developer {
  std::int64_t id = 0;  ///< the store's
  std::string name;

  friend bool operator==(const Developer&, const Developer&) = default;
};

/// One chart of a platform in a storefront.
struct ShownChart {
  ChartType type = ChartType::topFree;
  std::optional<int> genreId;  ///< of a category; absent: the chart of the whole store

  friend bool operator==(const ShownChart&, const ShownChart&) = default;
};

/// What is shown of the store: what a search found, all that a developer sells, or a chart.
struct StoreQuery {
  /// Without a query, unless there is a developer or a chart, nothing was searched for yet.
  SearchRequest request;
  std::optional<Developer> developer;
  std::optional<ShownChart> chart;

  friend bool operator==(const StoreQuery&, const StoreQuery&) = default;
};

/// Whether both ask the store the same, however the answer is filtered and ordered.
[[nodiscard]] bool isSameQuestion(const StoreQuery& left, const StoreQuery& right);

/// Which drops of prices are shown; which of their rows is said by the view.
struct DealPlace {
  std::optional<std::string> country;  ///< two letters in lower case; absent: the user's storefront
  std::optional<Platform> platform = Platform::mac;  ///< absent: any; iPhone and iPad are one
  double minimumDrop = 0;                            ///< percent

  friend bool operator==(const DealPlace&, const DealPlace&) = default;
};

/// Where the user is: all that is needed to come back to the same sight.
struct Place {
  SectionId section = SectionId::watchlist;
  /// In Search and Charts, what is shown of the store. In Collections, the one whose apps are
  /// shown; without it the overview of all.
  std::variant<std::monostate, RowId, StoreQuery, DealPlace> what;
  RowView rows;
  std::optional<RowKey> chosen;  ///< whose page is shown
  PageSpan page = PageSpan::beside;
  RowAnchor anchor;

  friend bool operator==(const Place&, const Place&) = default;
};

/// The same section and the same things in it, however they are shown: filtered or ordered, too.
[[nodiscard]] bool isSameSubject(const Place& left, const Place& right);

/// As the state file keeps a place. What cannot be read is as in a new place.
[[nodiscard]] QJsonObject jsonOf(const Place& place);
[[nodiscard]] Place placeOf(const QJsonObject& json);

}  // namespace quillet
