// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "collector/forget_command.h"

#include <fmt/format.h>

#include "collector/price_removal.h"
#include "collector/record_repair.h"

namespace quillet {

namespace {

std::string lineOf(const std::string& country, const RemovedPrice& price) {
  return fmt::format("{}: {}: {} of {}{}", country, price.name, price.price,
                     formatInternetDate(price.seen), price.isRepeated ? ", as the one before" : "");
}

std::string lineOf(const std::string& country, const RemovedApp& app) {
  return fmt::format("{}: {}, with its prices: {}", country, app.name, app.prices);
}

/// A line for each thing that was taken out.
std::vector<std::string> takenOut(SqlTransaction& transaction, const CollectorOptions& options,
                                  Instant now) {
  std::vector<std::string> lines;
  for (const std::string& country : options.storefronts) {
    if (options.priceOf) {
      for (const auto& price :
           removePrices(transaction, country, options.trackId, *options.priceOf, now))
        lines.push_back(lineOf(country, price));
    } else if (const auto app = removeApp(transaction, country, options.trackId, now)) {
      lines.push_back(lineOf(country, *app));
    }
  }
  if (lines.empty()) throw NothingToDo("Nothing of the kind is recorded; all is as it was.");
  return lines;
}

void forgetApp(const CommandCall& call, SqlDatabase& record) {
  const auto lines = wholly([&] {
    return inTransaction(record, SqlAccess::alone, [&](SqlTransaction& transaction) {
      keepOthersFromRecording(transaction, record.dialect());
      return takenOut(transaction, call.options, call.world.clock.now());
    });
  });
  call.print("Taken out:");
  for (const std::string& line : lines) call.print(line);
}

void forgetBefore(const CommandCall& call, SqlDatabase& record, Instant day) {
  if (day > call.world.clock.now())
    throw BadUsage(fmt::format("--before: {} is in the future.", formatDay(day)));
  const RemovedAge removed = wholly([&] {
    return inTransaction(record, SqlAccess::alone, [&](SqlTransaction& transaction) {
      keepOthersFromRecording(transaction, record.dialect());
      return removeBefore(transaction, call.options.storefronts, day, call.world.clock.now());
    });
  });
  call.print(fmt::format("Taken out: prices: {}, rounds: {}.", removed.prices, removed.rounds));
  record.giveSpaceBack();  // also what an earlier one that was stopped left
  if (removed.prices + removed.rounds == 0) throw NothingToDo("Nothing is as old as that.");
}

}  // namespace

int forget(const CommandCall& call) {
  const auto record = call.record();
  requirePast(*record, call.world.clock.now());
  if (call.options.before) {
    forgetBefore(call, *record, *call.options.before);
  } else {
    forgetApp(call, *record);
  }
  return kCollectorOk;
}

}  // namespace quillet
