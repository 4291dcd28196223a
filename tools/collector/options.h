// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <chrono>
#include <cstdint>
#include <optional>
#include <span>
#include <stdexcept>
#include <string>
#include <vector>

#include "base/dates.h"
#include "collector/time_span.h"

namespace quillet {

enum class CollectorCommand {
  help,
  version,
  init,
  collect,
  publish,
  repair,
  backup,
  restore,
  import,
  forget,
  status
};

/// What the command line asks for.
struct CollectorOptions {
  CollectorCommand command = CollectorCommand::help;
  std::string database;                  ///< empty: the usual one
  std::vector<std::string> storefronts;  ///< never empty once parsed
  std::string idsFile;                   ///< empty: none; "-": standard input
  bool wantsCharts = false;
  bool wantsRecorded = false;
  std::vector<std::string> searches;
  int requestsPerMinute = 15;
  std::chrono::hours every{0};
  std::optional<Instant> asOf;
  bool mayShrink = false;
  bool isQuiet = false;             ///< only errors and what needs somebody are said
  std::string folder;               ///< empty: the usual one
  std::string file;                 ///< of a backup
  std::int64_t trackId = 0;         ///< of an app to forget
  std::optional<TimeSpan> priceOf;  ///< absent: all of the app
  std::optional<Instant> before;    ///< absent: no prices are forgotten for their age
  std::string metricsFile;          ///< empty: none
  bool wantsJson = false;
};

/// A command line that cannot be followed; the text is a sentence that says why.
class BadUsage : public std::runtime_error {
  using std::runtime_error::runtime_error;
};

/// Reads the arguments after the program's name. Throws BadUsage.
[[nodiscard]] CollectorOptions parseCollectorOptions(std::span<const std::string> arguments);

[[nodiscard]] std::string collectorHelp();
[[nodiscard]] std::string collectorVersion();

}  // namespace quillet
