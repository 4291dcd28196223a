// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace quillet {

/// The track ID that an operand names: a number above 0, in digits, with or without white space
/// around them.
[[nodiscard]] std::optional<std::int64_t> trackIdIn(std::string_view operand);

/// The track ID in a link to an app's page in the App Store,
/// "https://apps.apple.com/…/id148?mt=12", as digits; absent where the operand is no such link.
[[nodiscard]] std::optional<std::string> trackIdInLink(std::string_view operand);

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
