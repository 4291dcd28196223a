// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "collector/collect_command.h"

#include <fmt/format.h>

#include <limits>

#include "base/text.h"
#include "collector/chart_question.h"
#include "collector/collect_round.h"
#include "collector/input_text.h"
#include "collector/paced_http_client.h"
#include "collector/presence.h"
#include "collector/record_repair.h"
#include "collector/trouble.h"
#include "collector/wanted_apps.h"
#include "collector/way_out.h"
#include "collector/worker_name.h"
#include "store/records/storefronts.h"
#include "system/endpoints.h"
#include "system/settings.h"

namespace quillet {

namespace {

/// The client's: what asks for it keeps one for all that this machine asks.
constexpr std::size_t kNoBudgetOfItsOwn = std::numeric_limits<std::size_t>::max();

std::vector<std::int64_t> listedIds(const std::string& file, const StopWatch& stop) {
  return file.empty() ? std::vector<std::int64_t>() : parseIds(inputText(file, stop), file);
}

WantedApps wantedBy(const CollectorOptions& options, const StopWatch& stop) {
  return {.storefronts = options.storefronts,
          .ids = listedIds(options.idsFile, stop),
          .searches = options.searches,
          .wantsCharts = options.wantsCharts,
          .wantsRecorded = options.wantsRecorded};
}

std::optional<Round> newestRoundIn(SqlDatabase& database) {
  const auto transaction = database.begin(SqlAccess::read);
  return newestRound(*transaction);
}

bool isUnderWay(const std::optional<Round>& round) { return round && !round->ended; }

void requireDue(const std::optional<Round>& last, std::chrono::hours every, Instant now) {
  if (!last || every == every.zero() || now >= last->began + every) return;
  throw NothingToDo(fmt::format("The last round began at {}; the next one may at {}.",
                                formatInternetDate(last->began),
                                formatInternetDate(last->began + every)));
}

/// Whether the user chose apps or storefronts that the round under way may lack.
bool isChoosy(const CollectorOptions& options) {
  return !options.idsFile.empty() || !options.searches.empty() ||
         options.storefronts.size() < kTrackedStorefronts.size();
}

void sayGoingOn(const CollectorServices& services, const Round& round,
                const CollectorOptions& options) {
  services.say(fmt::format("Going on with round {}: {}.", round.id, progressOf(round)));
  if (!isChoosy(options)) return;
  services.say(
      "It keeps the apps and storefronts that it began with; those named now wait for "
      "the next one.");
}

/// Says which others on this machine are at the record.
void enter(const CollectorServices& services) {
  const auto others =
      inTransaction(services.database, SqlAccess::write, [&](SqlTransaction& transaction) {
        return enterRecord(transaction, services.worker, services.clock.now(), services.hasEnded);
      });
  for (const std::string& other : others) {
    const auto process = processBeside(services.worker, other);
    if (!process) continue;
    services.say(
        fmt::format("Another collector (process {}) on this machine is at this record; both share "
                    "one budget.",
                    *process));
  }
}

/// Begins a round, unless another collector did since we looked. Returns it.
Round begun(const CollectorServices& services, const WantedApps& wanted,
            const CollectorOptions& options) {
  return inTransaction(services.database, SqlAccess::alone, [&](SqlTransaction& transaction) {
    const std::optional<Round> last = newestRound(transaction);
    if (isUnderWay(last)) {
      sayGoingOn(services, *last, options);
      return *last;
    }
    requireDue(last, options.every, services.now());
    beginPreparation(transaction, wanted, services.now());
    const Round round = newestRound(transaction).value();
    const std::int64_t questions = round.preparation->questions;
    if (questions > 0) {
      services.say(
          fmt::format("Round {} begins with {} charts and searches.", round.id, questions));
    }
    return round;
  });
}

/// Goes on with the round under way, or begins one.
Round entered(const CollectorServices& services, const CollectorOptions& options,
              const StopWatch& watch) {
  const std::optional<Round> last = newestRoundIn(services.database);
  if (isUnderWay(last)) {
    sayGoingOn(services, *last, options);
    return *last;
  }
  requireDue(last, options.every, services.now());
  return begun(services, wantedBy(options, watch), options);
}

std::string summaryOf(const Round& round) {
  return fmt::format(
      "Round {} has ended. Lookups: {}, failed: {}. Prices: {}, changed: {}. Not sold: {}.",
      round.id, round.lookups, round.failed, round.sums.found, round.sums.changed,
      round.sums.missing);
}

/// What to look up by hand, or by --ids, and which charts and searches were left out.
std::vector<std::string> failuresOf(SqlDatabase& database) {
  std::vector<std::string> lines;
  const auto transaction = database.begin(SqlAccess::read);
  for (const LookupRequest& failed : failedLookups(*transaction))
    lines.push_back(fmt::format("Failed ({}): {}", failed.country, fmt::join(failed.ids, " ")));
  for (const LookupRequest& failed : failedQuestions(*transaction))
    lines.push_back(fmt::format("Failed: {}", nameOfStored(failed.question, failed.country)));
  return lines;
}

/// A mistyped time, or a day that has begun elsewhere alone, would stop collecting until it comes.
void requireNotLater(const std::optional<Instant>& asOf, Instant now) {
  if (!asOf || *asOf <= now + kClockSpread) return;
  throw BadUsage(fmt::format("--as-of: {} is in the future; it is {}.", formatInternetDate(*asOf),
                             formatInternetDate(now)));
}

}  // namespace

Task<int> collectCommand(CommandCall call) {
  const CollectorOptions& options = call.options;
  Clock& clock = call.world.clock;
  requireNotLater(options.asOf, clock.now());
  const IniSettings settings(call.places.settingsFile);
  const Endpoints endpoints = findEndpoints(call.world.environment, settings, call.places);
  const auto database = call.record();
  const auto warn = [&](const std::string& line) { call.warn(line); };
  const auto ledger = [&] {
    return RequestLedger(sharedFolders(call.world.environment), nameOfWayOut(endpoints));
  };
  PacedHttpClient http(call.world.http, clock, options.requestsPerMinute, ledger, warn);
  ITunesClient itunes(http, clock, endpoints.itunes, kNoBudgetOfItsOwn);
  ChartsPageScraper chartPages(http, endpoints.appStore);
  ChartsService charts(itunes, chartPages, endpoints.itunes);
  const CollectorServices services{*database,
                                   itunes,
                                   charts,
                                   clock,
                                   options.asOf,
                                   call.world.worker,
                                   call.world.hasEnded,
                                   [&](const std::string& line) { call.say(line); },
                                   warn,
                                   {options.requestsPerMinute, options.every}};
  requirePast(*database, services.now());
  Round round;
  try {
    enter(services);
    const std::int64_t id = entered(services, options, call.watch()).id;
    round = co_await collectRound(services, call.stop);
    if (round.id < id) throw NothingToDo("There is no app to look up.");
  } catch (...) {
    noteGivingUp(*database, std::current_exception(), services.now());
    throw;
  }
  call.print(summaryOf(round));
  for (const std::string& line : failuresOf(*database)) call.warn(line);
  co_return round.failed > 0 ? kCollectorUpstream : kCollectorOk;
}

}  // namespace quillet
