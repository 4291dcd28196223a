// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <string>
#include <string_view>

#include "base/log_sink.h"
#include "cli/command_line_options.h"
#include "cli/limit_remark.h"
#include "system/environment.h"

namespace quillet {

/// A call of a command that reads the library: what was asked, where its data is found, and who is
/// told of the queries and of what a list leaves out, if anybody. What reads for one throws
/// CLIError as CLILocalStore::open() and LocalStatement do.
struct LocalCall {
  const CLIOptions& options;
  const Environment& environment;
  LogSink queryLog = {};
  RemarkSink tell = {};
};

/// Tells of a list that holds less than there is, because of the limit.
void tellCut(const LocalCall& call);

/// Throws CLIError, validation, where a command that takes options alone got anything else.
void refuseOperands(std::string_view command, const CLIOptions& options);

}  // namespace quillet
