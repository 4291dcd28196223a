// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include "cli/online/command_call.h"
#include "queries/app_examination.h"

namespace quillet {

/// What the options of a command ask for. Reads what is owned, where that is left out: before any
/// request, for without it the command cannot answer. Throws CLIError.
[[nodiscard]] ExaminationCriteria criteriaFor(const CLIOptions& options,
                                              const CommandServices& services);

}  // namespace quillet
