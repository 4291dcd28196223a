// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <string>

#include "cli/online/prices/price_history_result.h"
#include "cli/streams.h"
#include "system/locale_formats.h"

namespace quillet {

/// A page for people: where the price stands, a chart of it, and the latest changes.
[[nodiscard]] std::string renderPriceHistoryText(const CLIPriceHistoryPayload& payload,
                                                 const LocaleFormats& formats,
                                                 const TextStyle& style);

}  // namespace quillet
