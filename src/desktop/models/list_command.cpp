// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/models/list_command.h"

#include <fmt/format.h>

#include <algorithm>

#include "analysis/filter_options.h"
#include "base/numbers.h"
#include "base/text.h"

namespace quillet {

namespace {

constexpr std::size_t kLeastCompared = 2;

/// A storefront is two letters; whatever else a place holds is no shell's to read.
std::string storefrontWord(const std::string& country) {
  const bool isPlain =
      std::ranges::all_of(country, [](char letter) { return letter >= 'a' && letter <= 'z'; });
  return isPlain && !country.empty() ? country : shellQuoted(country);
}

std::string platformOption(Platform platform) {
  if (platform == Platform::mac) return {};
  return fmt::format(" --platform {}", textOf(kPlatformWords, platform));
}

std::optional<std::string> searchCommand(const StoreQuery& query, const ListNames& names) {
  if (query.request.query.empty() || query.developer) return std::nullopt;
  SearchRequest request = query.request;
  if (!request.country) request.country = names.storefront;
  return searchCommandLine(request);
}

std::string chartCommand(const StoreQuery& query, const ListNames& names) {
  std::string line = "quillet charts";
  const ShownChart chart = query.chart.value_or(ShownChart());
  if (chart.type != ChartType::topFree)
    line += fmt::format(" --chart {}", textOf(kChartTypeWords, chart.type));
  if (chart.genreId) line += fmt::format(" --genre {}", *chart.genreId);
  line += platformOption(query.request.platform);
  line += " --country " + storefrontWord(query.request.country.value_or(names.storefront));
  AppFilters filters = query.request.filters;
  filters.genre.reset();  // there the option names the chart
  return line + filterOptions(filters) + " --json";
}

std::string dealsCommand(const DealPlace& deals, const ListNames& names) {
  std::string line =
      "quillet deals --country " + storefrontWord(deals.country.value_or(names.storefront));
  if (deals.platform)
    line += fmt::format(" --platform {}", *deals.platform == Platform::mac ? "mac" : "iphone");
  if (deals.minimumDrop > 0) line += " --min-drop " + decimalText(deals.minimumDrop);
  return line + " --json";
}

std::optional<std::string> compareCommand(const ListNames& names) {
  if (names.compared.size() < kLeastCompared) return std::nullopt;
  std::string line = "quillet compare";
  for (const ComparedKey& each : names.compared) line += fmt::format(" {}", each.app.trackId);
  return line + " --country " + storefrontWord(names.comparedIn) + " --json";
}

/// The command finds a collection by any part of its name, and takes what begins with "-" for an
/// option.
std::string collectionCommand(const ListNames& names) {
  const std::size_t begin = names.collection.find_first_not_of('-');
  if (begin == std::string::npos) return "quillet collections --json";
  return fmt::format("quillet collections {} --json", shellQuoted(names.collection.substr(begin)));
}

std::string myAppsCommand(const RowView& rows) {
  const bool isOutdated = std::ranges::find(rows.chips, "updates") != rows.chips.end();
  return isOutdated ? "quillet my-apps --outdated --json" : "quillet my-apps --json";
}

std::optional<std::string> commandOf(const Place& place, const ListNames& names) {
  const auto* query = std::get_if<StoreQuery>(&place.what);
  const auto* deals = std::get_if<DealPlace>(&place.what);
  switch (place.section) {
    case SectionId::search: return query ? searchCommand(*query, names) : std::nullopt;
    case SectionId::charts: return chartCommand(query ? *query : StoreQuery(), names);
    case SectionId::deals: return dealsCommand(deals ? *deals : DealPlace(), names);
    case SectionId::watchlist: return "quillet watchlist --json";
    case SectionId::collections: return collectionCommand(names);
    case SectionId::myApps: return myAppsCommand(place.rows);
    case SectionId::compare: return compareCommand(names);
    case SectionId::alerts:
    case SectionId::history: break;
  }
  return std::nullopt;
}

}  // namespace

std::optional<QString> listCommand(const Place& place, const ListNames& names) {
  const std::optional<std::string> command = commandOf(place, names);
  return command ? std::optional(QString::fromStdString(*command)) : std::nullopt;
}

}  // namespace quillet
