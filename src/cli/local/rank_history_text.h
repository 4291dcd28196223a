// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include "cli/local/rank_history.h"
#include "cli/streams.h"
#include "system/time_zone.h"

namespace quillet {

/// Days are those of `zone`.
[[nodiscard]] std::string renderRankHistoryText(const CLIRankHistoryPayload& payload,
                                                const UtcOffsetAt& zone, const TextStyle& style);

/// In either form.
[[nodiscard]] std::string renderRankHistory(const CLIRankHistoryPayload& payload, OutputForm form,
                                            const UtcOffsetAt& zone, const TextStyle& style);

}  // namespace quillet
