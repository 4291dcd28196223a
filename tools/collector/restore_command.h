// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include "collector/command_call.h"

namespace quillet {

/// Makes the record from another one, a backup for the most part, which may come from another kind
/// of database; collecting goes on at once where that one was. Returns the status. Throws
/// RecordInTheWay, RecordInTheFuture, DatabaseError and StoppedBefore; then nothing is recorded.
int restore(const CommandCall& call);

}  // namespace quillet
