// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace quillet {

/// Suggestions of an error: where a person who has a bundle ID finds the track ID. Empty where the
/// operand is none.
[[nodiscard]] std::vector<std::string> bundleIdHints(std::string_view operand);

/// The one track ID that `command` takes. Throws CLIError where it is missing, is none, or is not
/// alone.
[[nodiscard]] std::int64_t soleTrackId(const std::string& command,
                                       const std::vector<std::string>& operands);

/// Likewise, for a command that says `complaint`, a sentence, whatever is wrong. `example` is a
/// command line.
[[nodiscard]] std::int64_t numericTrackId(const std::vector<std::string>& operands,
                                          const std::string& complaint, const std::string& example);

}  // namespace quillet
