// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "collector/run.h"

#include <fmt/format.h>

#include <system_error>

#include "base/errors.h"
#include "base/text.h"
#include "collector/collect_round.h"
#include "collector/input_text.h"
#include "collector/options.h"
#include "collector/publish.h"
#include "collector/record_repair.h"
#include "collector/record_tables.h"
#include "collector/stop_watch.h"
#include "collector/wanted_apps.h"
#include "store/records/itunes_error.h"
#include "store/records/storefronts.h"
#include "system/endpoints.h"
#include "system/places.h"
#include "system/settings.h"

namespace quillet {

namespace {

namespace fs = std::filesystem;

/// That there is nothing to do.
class NothingToDo : public std::runtime_error {
  using std::runtime_error::runtime_error;
};

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

std::string addressIn(const CollectorOptions& options, const Environment& environment,
                      const Places& places) {
  std::string address = options.database;
  if (address.empty()) address = environment.get("QUILLET_COLLECTOR_DATABASE").value_or("");
  return address.empty() ? (places.dataDirectory / "collector.db").string() : address;
}

std::unique_ptr<SqlDatabase> recordAt(const std::string& address, const StopWatch& stop) {
  auto database = openDatabase(address, stop);
  requireRecord(*database);
  return database;
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
      "Round {} has ended. Lookups: {}, failed: {}. Prices: {}, changed: {}. Not sold: {}.\n",
      round.id, round.lookups, round.failed, round.sums.found, round.sums.changed,
      round.sums.missing);
}

/// What to look up by hand, or by --ids.
std::string failuresOf(SqlDatabase& database) {
  std::string text;
  for (const LookupRequest& failed : failedLookups(*database.begin(SqlAccess::read)))
    text += fmt::format("Failed ({}): {}\n", failed.country, fmt::join(failed.ids, " "));
  return text;
}

/// A mistyped time would stop collecting until it comes.
void requireNotLater(const std::optional<Instant>& asOf, Instant now) {
  if (asOf && *asOf > now + std::chrono::hours(24))
    throw BadUsage(fmt::format("--as-of: {} is in the future.", formatInternetDate(*asOf)));
}

Task<int> collect(CollectorWorld world, CollectorOptions options, Places places, StopToken stop) {
  requireNotLater(options.asOf, world.clock.now());
  const IniSettings settings(places.settingsFile);
  const Endpoints endpoints = findEndpoints(world.environment, settings, places);
  const StopWatch watch(stop, world.stopDescriptor);
  const auto database = recordAt(addressIn(options, world.environment, places), watch);
  ITunesClient itunes(world.http, world.clock, endpoints.itunes,
                      static_cast<std::size_t>(options.requestsPerMinute));
  ChartsPageScraper chartPages(world.http, endpoints.appStore);
  ChartsService charts(itunes, chartPages, endpoints.itunes);
  const CollectorServices services{
      *database,      itunes,
      charts,         world.clock,
      options.asOf,   world.worker,
      world.hasEnded, [&](const std::string& line) { world.err(line + '\n'); }};
  requirePast(*database, services.now());
  co_await enterRound(services, options, stop, watch);
  const Round round = co_await collectRound(services, stop);
  world.out(summaryOf(round));
  if (round.failed > 0) world.err(failuresOf(*database));
  co_return round.failed > 0 ? kCollectorUpstream : kCollectorOk;
}

int makeRecord(const CollectorWorld& world, const std::string& address, const StopWatch& watch) {
  const auto database = openDatabase(address, watch, IfMissing::make);
  switch (makeRecordTables(*database)) {
    case RecordState::made: world.out("The record is made.\n"); break;
    case RecordState::broughtUpToDate: world.out("The record is brought up to date.\n"); break;
    case RecordState::asItWas: world.out("There is a record already; it stays as it is.\n"); break;
  }
  return kCollectorOk;
}

int repair(const CollectorWorld& world, const std::string& address, const StopWatch& watch) {
  const TakenOut out = takeOutTheFuture(*recordAt(address, watch), world.clock.now());
  world.out(fmt::format("Taken out: rounds: {}, prices: {}.\n", out.rounds, out.prices));
  return kCollectorOk;
}

int publish(const CollectorWorld& world, const CollectorOptions& options, const Places& places,
            const StopWatch& watch) {
  const PublishingWishes wishes{
      options.folder.empty() ? places.dataDirectory / "price-data" : fs::path(options.folder),
      world.clock.now(), options.mayShrink};
  const auto database = recordAt(addressIn(options, world.environment, places), watch);
  requirePast(*database, world.clock.now());
  const auto say = [&](const std::string& line) { world.out(line + '\n'); };
  const std::size_t storefronts = publishRecord(*database, wishes, say, watch);
  if (storefronts == 0) throw NothingToDo("Nothing is recorded yet.");
  return kCollectorOk;
}

Task<int> obey(CollectorWorld world, CollectorOptions options, StopToken stop) {
  const Places places = findPlaces(world.environment);
  const StopWatch watch(stop, world.stopDescriptor);
  switch (options.command) {
    case CollectorCommand::init:
      co_return makeRecord(world, addressIn(options, world.environment, places), watch);
    case CollectorCommand::repair:
      co_return repair(world, addressIn(options, world.environment, places), watch);
    case CollectorCommand::collect: co_return co_await collect(world, options, places, stop);
    case CollectorCommand::publish: co_return publish(world, options, places, watch);
    case CollectorCommand::version: world.out(collectorVersion()); break;
    case CollectorCommand::help: world.out(collectorHelp()); break;
  }
  co_return kCollectorOk;
}

struct Ending {
  int status;
  std::string words;
};

/// The one place where errors become words.
Ending endingOf(const std::exception_ptr& error) {
  try {
    std::rethrow_exception(error);
  } catch (const NothingToDo& nothing) {
    return {kCollectorNothing, nothing.what()};
  } catch (const BadUsage& bad) {
    return {kCollectorBadUsage, fmt::format("{}\nTry quillet-collector --help.", bad.what())};
  } catch (const RecordInTheFuture& later) {
    return {kCollectorFuture, later.what()};
  } catch (const UnfitForPublication& unfit) {
    return {kCollectorUnfit, unfit.what()};
  } catch (const BadSetting& bad) {
    return {kCollectorBadUsage, fmt::format("{}.", bad.what())};
  } catch (const ITunesError& answer) {
    return {answer.isRefusal() ? kCollectorRefused : kCollectorUpstream, answer.what()};
  } catch (const NetworkError& failure) {
    const bool isStopped = failure.kind() == NetworkError::Kind::cancelled;
    return {kCollectorUpstream, isStopped ? "Stopped; the next collect goes on from here."
                                          : fmt::format("{}.", failure.what())};
  } catch (const DecodingError& garbage) {
    return {kCollectorUpstream,
            fmt::format("The store's answer could not be read: {}.", garbage.what())};
  } catch (const Stopped&) {
    return {kCollectorUpstream, "Stopped; the next run goes on from here."};
  } catch (const std::system_error& storage) {
    return {kCollectorStorage, fmt::format("{}.", storage.what())};
  } catch (const std::exception& storage) {
    return {kCollectorStorage, storage.what()};
  }
}

}  // namespace

Task<int> runCollector(CollectorWorld world, std::vector<std::string> arguments, StopToken stop) {
  Ending ending{};
  try {
    const CollectorOptions options = parseCollectorOptions(arguments);
    co_return co_await obey(world, options, stop);
  } catch (...) {
    ending = endingOf(std::current_exception());
  }
  world.err(fmt::format("quillet-collector: {}\n", ending.words));
  co_return ending.status;
}

}  // namespace quillet
