// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include "collector/command_call.h"

namespace quillet {

/// Takes a wrong price, a whole app or what is older than a day out of the record, and says what it
/// took. Returns the status. Throws NothingToDo where there is no such thing, RecordInTheFuture,
/// DatabaseError and StoppedBefore.
int forget(const CommandCall& call);

}  // namespace quillet
