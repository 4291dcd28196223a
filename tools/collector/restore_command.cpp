// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "collector/restore_command.h"

#include <fmt/format.h>

#include "base/errors.h"
#include "base/text.h"
#include "collector/lookup_queue.h"
#include "collector/record_copy.h"
#include "collector/record_repair.h"
#include "collector/record_tables.h"

namespace quillet {

namespace {

/// The backup, found to be one that this collector understands.
std::unique_ptr<SqlDatabase> openedBackup(const CommandCall& call) {
  try {
    auto backup = openToRead(call.options.file, call.watch());
    requireRecord(*backup);
    requireSound(*backup->begin(SqlAccess::read));
    return backup;
  } catch (const DatabaseError& error) {
    throw DatabaseError(
        fmt::format("{} cannot be restored. {}", printable(call.options.file), error.what()));
  }
}

/// Whoever was at lookups works on the record that was copied.
void endAllLeases(SqlTransaction& transaction) {
  for (const LeaseHolder& holder : leaseHolders(transaction)) endLeases(transaction, holder.worker);
}

}  // namespace

int restore(const CommandCall& call) {
  return wholly([&] {
    const auto backup = openedBackup(call);
    requirePast(*backup, call.world.clock.now());
    const auto record = openDatabase(call.address(), call.watch(), IfMissing::make);
    RecordSize size;
    fillRecord(*record, [&](SqlTransaction& to) {
      size = copyRecord(*backup->begin(SqlAccess::read), backup->dialect(), to);
      endAllLeases(to);
    });
    call.print(fmt::format("Restored: {}.", wordsOf(size)));
    return kCollectorOk;
  });
}

}  // namespace quillet
