// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <string>

#include "cli/online/app/versions_result.h"
#include "cli/streams.h"
#include "system/locale_formats.h"

namespace quillet {

/// The verdict as labelled lines, then the releases as a table with the time each one took.
[[nodiscard]] std::string renderVersionsText(const CLIVersionsPayload& payload,
                                             const LocaleFormats& formats, const TextStyle& style);

}  // namespace quillet
