// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include "cli/local/purchase_history.h"
#include "cli/streams.h"
#include "system/locale_formats.h"

namespace quillet {

[[nodiscard]] std::string renderPurchaseHistoryText(const CLIPurchaseHistoryPayload& payload,
                                                    const LocaleFormats& formats,
                                                    const TextStyle& style);

}  // namespace quillet
