// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include "cli/dispatcher.h"
#include "system/environment.h"
#include "system/locale_formats.h"
#include "system/time_zone.h"

namespace quillet {

/// What a command that reads the library prints, in either form, without a final line feed; days
/// are those of `zone`. Throws CLIError.
[[nodiscard]] std::string runLocalCommand(const CommandInvocation& invocation,
                                          const Environment& environment,
                                          const LocaleFormats& formats, const UtcOffsetAt& zone,
                                          const LogSink& queryLog = {});

}  // namespace quillet
