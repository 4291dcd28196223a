// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "cli/local/local_call.h"

#include <fmt/format.h>

#include "cli/cli_error.h"

namespace quillet {

void tellCut(const LocalCall& call) {
  if (call.tell) call.tell(limitRemark({.limit = call.options.limit}));
}

void refuseOperands(std::string_view command, const CLIOptions& options) {
  if (options.operands.empty()) return;
  throw CLIError(CLIError::Code::validation,
                 fmt::format("{} takes no arguments, only options.", command),
                 {fmt::format("quillet {} --json", command)});
}

}  // namespace quillet
