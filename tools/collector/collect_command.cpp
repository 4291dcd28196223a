// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "collector/collect_command.h"

#include <fmt/format.h>

#include "base/text.h"
#include "collector/collect_round.h"
#include "collector/input_text.h"
#include "collector/record_repair.h"
#include "collector/trouble.h"
#include "collector/wanted_apps.h"
#include "store/records/storefronts.h"
#include "system/endpoints.h"
#include "system/settings.h"

namespace quillet {

namespace {

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

/// Begins a round, unless another collector did since we looked.
Round begun(const CollectorServices& services, const std::vector<LookupRequest>& requests,
            std::chrono::hours every) {
  return inTransaction(services.database, SqlAccess::alone, [&](SqlTransaction& transaction) {
    const std::optional<Round> last = newestRound(transaction);
    if (isUnderWay(last)) return *last;
    requireDue(last, every, services.now());
    beginRound(transaction, requests, services.now());
    return newestRound(transaction).value();
  });
}

/// "9 d 6 h", "6 h 14 min", "14 min".
std::string inWords(std::chrono::minutes time) {
  using namespace std::chrono;
  if (time >= 48h) return fmt::format("{} d {} h", time / 24h, time % 24h / 1h);
  if (time >= 2h) return fmt::format("{} h {} min", time / 1h, time % 1h / 1min);
  return fmt::format("{} min", time.count());
}

std::string beginningOf(const Round& round, int requestsPerMinute) {
  const std::chrono::minutes time((round.lookups + requestsPerMinute - 1) / requestsPerMinute);
  return fmt::format("Round {}: {} lookups; {} at {} requests a minute.", round.id, round.lookups,
                     inWords(time), requestsPerMinute);
}

/// Whether the user chose apps or storefronts that the round under way may lack.
bool isChoosy(const CollectorOptions& options) {
  return !options.idsFile.empty() || !options.searches.empty() ||
         options.storefronts.size() < kTrackedStorefronts.size();
}

/// Goes on with the round under way, or begins one.
Task<> enterRound(CollectorServices services, CollectorOptions options, StopToken stop,
                  StopWatch watch) {
  const std::optional<Round> last = newestRoundIn(services.database);
  if (isUnderWay(last)) {
    services.say(fmt::format("Going on with round {}: {} of {} lookups are done.", last->id,
                             last->done, last->lookups));
    if (isChoosy(options)) {
      services.say(
          "It keeps the apps and storefronts that it began with; those named now wait for "
          "the next one.");
    }
    co_return;
  }
  requireDue(last, options.every, services.now());
  const std::vector<LookupRequest> requests =
      co_await wantedLookups(services, wantedBy(options, watch), stop);
  if (requests.empty()) throw NothingToDo("There is no app to look up.");
  const Round round = begun(services, requests, options.every);
  services.say(beginningOf(round, options.requestsPerMinute));
}

std::string summaryOf(const Round& round) {
  return fmt::format(
      "Round {} has ended. Lookups: {}, failed: {}. Prices: {}, changed: {}. Not sold: {}.",
      round.id, round.lookups, round.failed, round.sums.found, round.sums.changed,
      round.sums.missing);
}

/// What to look up by hand, or by --ids.
std::vector<std::string> failuresOf(SqlDatabase& database) {
  std::vector<std::string> lines;
  for (const LookupRequest& failed : failedLookups(*database.begin(SqlAccess::read)))
    lines.push_back(fmt::format("Failed ({}): {}", failed.country, fmt::join(failed.ids, " ")));
  return lines;
}

/// A mistyped time would stop collecting until it comes.
void requireNotLater(const std::optional<Instant>& asOf, Instant now) {
  if (asOf && *asOf > now + std::chrono::hours(24))
    throw BadUsage(fmt::format("--as-of: {} is in the future.", formatInternetDate(*asOf)));
}

}  // namespace

Task<int> collectCommand(CommandCall call) {
  const CollectorOptions& options = call.options;
  Clock& clock = call.world.clock;
  requireNotLater(options.asOf, clock.now());
  const IniSettings settings(call.places.settingsFile);
  const Endpoints endpoints = findEndpoints(call.world.environment, settings, call.places);
  const auto database = call.record();
  ITunesClient itunes(call.world.http, clock, endpoints.itunes,
                      static_cast<std::size_t>(options.requestsPerMinute));
  ChartsPageScraper chartPages(call.world.http, endpoints.appStore);
  ChartsService charts(itunes, chartPages, endpoints.itunes);
  const CollectorServices services{*database,
                                   itunes,
                                   charts,
                                   clock,
                                   options.asOf,
                                   call.world.worker,
                                   call.world.hasEnded,
                                   [&](const std::string& line) { call.say(line); }};
  requirePast(*database, services.now());
  Round round;
  try {
    co_await enterRound(services, options, call.stop, call.watch());
    round = co_await collectRound(services, call.stop);
  } catch (...) {
    noteGivingUp(*database, std::current_exception(), services.now());
    throw;
  }
  call.print(summaryOf(round));
  for (const std::string& line : failuresOf(*database)) call.say(line);
  co_return round.failed > 0 ? kCollectorUpstream : kCollectorOk;
}

}  // namespace quillet
