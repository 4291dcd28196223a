// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include "cli/local/watchlist.h"
#include "cli/streams.h"
#include "system/locale_formats.h"

namespace quillet {

[[nodiscard]] std::string renderWatchlistText(const CLIWatchlist& watchlist,
                                              const LocaleFormats& formats, const TextStyle& style);

}  // namespace quillet
