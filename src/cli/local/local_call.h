// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <string>
#include <string_view>

#include "base/log_sink.h"
#include "cli/command_line_options.h"
#include "system/environment.h"

namespace quillet {

/// A call of a command that reads the library: what was asked, where its data is found, and who is
/// told of the queries, if anybody. What reads for one throws CLIError as CLILocalStore::open() and
/// LocalStatement do.
struct LocalCall {
  const CLIOptions& options;
  const Environment& environment;
  LogSink queryLog = {};
};

/// Throws CLIError, validation, where a command that takes options alone got anything else.
void refuseOperands(std::string_view command, const CLIOptions& options);

}  // namespace quillet
