// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include "collector/command_call.h"

namespace quillet {

/// Tells how it stands with the record and what is published of it.
int statusCommand(const CommandCall& call);

}  // namespace quillet
