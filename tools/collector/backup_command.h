// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include "collector/command_call.h"

namespace quillet {

/// Copies the record as it is at one moment, with the round under way, into a new SQLite file,
/// which is a record by itself. Others may collect meanwhile. Returns the status. Throws
/// FileInTheWay, DatabaseError, std::system_error and StoppedBefore; then there is no such file.
int backUp(const CommandCall& call);

}  // namespace quillet
