// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "analysis/filters.h"
#include "cli/command_table.h"
#include "store/records/chart_type.h"
#include "store/records/platform.h"

namespace quillet {

inline constexpr std::size_t kLongestList = 200;  ///< the greatest `--limit`

struct OptionRow;

/// What the options of a command line ask for. Every command takes every option and ignores what
/// it does not use.
struct CLIOptions {
  std::optional<Platform> platform;  ///< absent: mac for lists, else whichever the app is
  std::string country;               ///< two letters, lower case
  bool countryIsExplicit = false;
  std::size_t limit = 25;
  bool json = false;
  AppFilters filters;
  std::optional<SortOrder> sort;      ///< absent: the command's own order
  std::optional<double> minimumDrop;  ///< percent
  bool outdatedOnly = false;
  std::optional<int> stars;
  std::vector<std::string> countries;
  bool wantsVersions = false;
  bool recentFirst = false;
  std::optional<ChartType> chart;

  std::vector<std::string> operands;    ///< what is no option, in order
  std::vector<const OptionRow*> given;  ///< the options that were named, each once
  int retries = 2;                      ///< how often a rate-limited command is run again
};

/// One option: one row. `apply` reads the value (empty for an option without one) or throws
/// CLIError; `option` is the name as it was typed.
struct OptionRow {
  std::string_view name;
  std::string_view shortName;    ///< empty where there is none
  std::string_view placeholder;  ///< of its value; empty where it takes none
  std::string_view summary;      ///< one line
  CommandSet commands;           ///< those that heed it
  /// What a shell offers as the value, not always all that is taken; null where nothing is.
  std::vector<std::string_view> (*words)();
  void (*apply)(CLIOptions& options, std::string_view option, std::string_view value);
};

/// The retry options come last.
[[nodiscard]] std::span<const OptionRow> optionRows();

/// Reads what follows the command word; the last of several equal options wins. `country` is the
/// storefront where no option names one. Throws CLIError at the first bad argument.
[[nodiscard]] CLIOptions parseOptions(std::span<const std::string> arguments, std::string country);

/// Those of the given options that a command takes without heeding them.
[[nodiscard]] std::vector<const OptionRow*> ignoredOptions(CommandId command,
                                                           const CLIOptions& options);

/// Whether the command reads the storefront that `--country` names.
[[nodiscard]] bool heedsCountry(CommandId command);

}  // namespace quillet
