// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>
#include <string>
#include <vector>

#include "analysis/filters.h"
#include "store/records/platform.h"

namespace quillet {

/// What the panel of filters stands for.
struct FilterPanelState {
  AppFilters filters;
  std::string currency;  ///< the storefront's, ISO 4217; empty while it is unknown
  Platform platform = Platform::mac;
  std::vector<std::string> genres;  ///< of the apps that were found
  std::int64_t thisYear = 0;        ///< near which years are offered
  bool hasCategories = true;        ///< whether a category is a filter here

  friend bool operator==(const FilterPanelState&, const FilterPanelState&) = default;
};

/// A filter that is chosen from a few values.
enum class FilterField {
  price,
  purchases,
  rating,
  updated,
  released,
  ratingCount,
  category,
  size,
  architecture,
  system,
  owned,
};

struct FilterChoice {
  QString text;
  AppFilters filters;  ///< all of them, once this is chosen
  bool isChosen = false;

  friend bool operator==(const FilterChoice&, const FilterChoice&) = default;
};

/// The values of one filter, "any" first. A value that is set is among them, whatever it is.
struct FilterGroup {
  FilterField field = FilterField::price;
  QString title;
  std::vector<FilterChoice> choices;

  friend bool operator==(const FilterGroup&, const FilterGroup&) = default;
};

/// In the order of the panel. The architecture is the Mac's alone, unless it is set.
[[nodiscard]] std::vector<FilterGroup> filterGroups(const FilterPanelState& state);

/// "macOS", "iOS", "iPadOS"
[[nodiscard]] QString systemName(Platform platform);

}  // namespace quillet
