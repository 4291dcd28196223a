// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "collector/run.h"

#include <fmt/format.h>

#include <system_error>

#include "base/errors.h"
#include "collector/backup_command.h"
#include "collector/collect_command.h"
#include "collector/forget_command.h"
#include "collector/import_command.h"
#include "collector/publish.h"
#include "collector/record_repair.h"
#include "collector/record_tables.h"
#include "collector/restore_command.h"
#include "collector/status_command.h"
#include "store/records/itunes_error.h"
#include "system/settings.h"

namespace quillet {

namespace {

int makeRecord(const CommandCall& call) {
  const auto database = openDatabase(call.address(), call.watch(), IfMissing::make);
  switch (makeRecordTables(*database)) {
    case RecordState::made: call.print("The record is made."); break;
    case RecordState::broughtUpToDate: call.print("The record is brought up to date."); break;
    case RecordState::asItWas: call.print("There is a record already; it stays as it is."); break;
  }
  return kCollectorOk;
}

int repair(const CommandCall& call) {
  const auto now = [&] { return call.options.asOf.value_or(call.world.clock.now()); };
  const TakenOut out = takeOutTheFuture(*call.record(), now);
  call.print(fmt::format("Taken out: rounds: {}, prices: {}.", out.rounds, out.prices));
  return kCollectorOk;
}

int publish(const CommandCall& call) {
  const PublishingWishes wishes{call.publishedFolder(), call.world.clock.now(),
                                call.options.mayShrink};
  const auto database = call.record();
  requirePast(*database, wishes.now);
  const auto print = [&](const std::string& line) { call.print(line); };
  const std::size_t storefronts = publishRecord(*database, wishes, print, call.watch());
  if (storefronts == 0) throw NothingToDo("Nothing is recorded yet.");
  return kCollectorOk;
}

Task<int> obey(CommandCall call) {
  switch (call.options.command) {
    case CollectorCommand::init: co_return makeRecord(call);
    case CollectorCommand::repair: co_return repair(call);
    case CollectorCommand::collect: co_return co_await collectCommand(call);
    case CollectorCommand::publish: co_return publish(call);
    case CollectorCommand::backup: co_return backUp(call);
    case CollectorCommand::restore: co_return restore(call);
    case CollectorCommand::import: co_return importPublished(call);
    case CollectorCommand::forget: co_return forget(call);
    case CollectorCommand::status: co_return statusCommand(call);
    case CollectorCommand::version: call.world.out(collectorVersion()); break;
    case CollectorCommand::help: call.world.out(collectorHelp()); break;
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
  } catch (const StoppedBefore&) {
    return {kCollectorUpstream, "Stopped; all is as it was."};
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
  bool isQuiet = false;
  try {
    const CollectorOptions options = parseCollectorOptions(arguments);
    isQuiet = options.isQuiet;
    co_return co_await obey({world, options, findPlaces(world.environment), stop});
  } catch (...) {
    ending = endingOf(std::current_exception());
  }
  if (isQuiet && ending.status == kCollectorNothing) co_return ending.status;
  world.err(fmt::format("quillet-collector: {}\n", ending.words));
  co_return ending.status;
}

}  // namespace quillet
