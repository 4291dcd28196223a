// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include "cli/dispatcher.h"
#include "cli/limit_remark.h"
#include "system/environment.h"
#include "system/locale_formats.h"
#include "system/time_zone.h"

namespace quillet {

/// Where a command that reads the library runs, and who is told what on the way.
struct LocalSurroundings {
  const Environment& environment;
  const LocaleFormats& formats;
  const UtcOffsetAt& zone;  ///< whose days are shown
  std::size_t width = 0;    ///< of the terminal; 0 where nothing limits a line
  LogSink queryLog = {};
  RemarkSink tell = {};
};

/// What a command that reads the library prints, in either form, without a final line feed. Throws
/// CLIError.
[[nodiscard]] std::string runLocalCommand(const CommandInvocation& invocation,
                                          const LocalSurroundings& surroundings);

}  // namespace quillet
