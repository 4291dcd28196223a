// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "collector/backup_command.h"

#include <fmt/format.h>

#include "collector/backup_draft.h"
#include "collector/record_copy.h"
#include "collector/record_tables.h"
#include "collector/sqlite_database.h"

namespace quillet {

namespace {

void copy(SqlDatabase& record, const std::filesystem::path& file, const StopWatch& stop) {
  if (record.copyTo(file)) return;
  const auto copy = openDatabase(file.string(), stop, IfMissing::make);
  fillRecord(*copy, [&](SqlTransaction& to) {
    copyRecord(*record.begin(SqlAccess::read), record.dialect(), to);
  });
}

/// What is in the copy, which is found to be whole.
RecordSize checked(const std::filesystem::path& file, const StopWatch& stop) {
  const auto copy = openToRead(file, stop);
  requireRecord(*copy);
  const auto transaction = copy->begin(SqlAccess::read);
  requireSound(*transaction);
  return sizeOf(*transaction);
}

}  // namespace

int backUp(const CommandCall& call) {
  return wholly([&] {
    const auto record = call.record();
    BackupDraft draft(call.options.file, call.watch());
    copy(*record, draft.path(), call.watch());
    makeOneFile(draft.path());
    const RecordSize size = checked(draft.path(), call.watch());
    draft.put();
    call.print(fmt::format("Backed up: {}.", wordsOf(size)));
    return kCollectorOk;
  });
}

}  // namespace quillet
