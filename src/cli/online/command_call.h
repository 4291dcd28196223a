// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <functional>
#include <string>

#include "analysis/filter_match.h"
#include "analysis/maintenance_health.h"
#include "cli/cli_error.h"
#include "cli/command_line_options.h"
#include "cli/online/progress.h"
#include "cli/online/query_activity.h"
#include "cli/recorded_chart.h"
#include "net/clock.h"
#include "queries/query_call.h"
#include "store/catalog_client.h"
#include "store/charts_service.h"
#include "store/itunes_client.h"
#include "store/price_seed_client.h"
#include "store/store_scraper.h"
#include "system/locale_formats.h"
#include "system/time_zone.h"

namespace quillet {

/// What commands reach the outside through. All of it outlives the command.
struct CommandServices {
  ITunesClient& itunes;
  CatalogClient& catalog;
  PriceSeedClient& prices;
  Clock& clock;
  const LocaleFormats& formats;
  UtcOffsetAt timeZone;
  std::function<TrackIds()> ownedTrackIds;  ///< reads the library; throws CLIError
  ChartsService& charts;
  StoreScraper& pages;
  RecordedChartReader recordedChart;
  MaintenanceThresholds maintenance = {};
  Progress progress = {};

  [[nodiscard]] QueryServices queries() const { return {itunes, catalog, charts, pages, clock}; }
};

/// One attempt at a command. Handlers take it by value, for they are coroutines.
struct CommandCall {
  CLIOptions options;
  OutputForm form;
  TextStyle style;
  CommandServices services;

  /// As a question to the store: a person waits for it and is told how far it has come.
  [[nodiscard]] QueryCall question() const {
    return {.context = {}, .progress = [progress = services.progress](QueryProgress reached) {
              progress.report(activityOf(reached));
            }};
  }
};

/// What a command made of its question.
struct CommandResult {
  std::string text;  ///< to print, without a final line feed
  ExitStatus status = ExitStatus::ok;
  std::string notice;  ///< one line for standard error on what is missing; empty where nothing is
  std::string remark;  ///< one more, after the text, for a person at a terminal
};

/// A command's handler; it throws CLIError or what the clients throw.
using CommandHandler = Task<CommandResult> (*)(CommandCall call);

}  // namespace quillet
