// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "cli/track_id_operand.h"

#include <fmt/format.h>

#include "base/numbers.h"
#include "base/text.h"
#include "cli/cli_error.h"

namespace quillet {

std::int64_t soleTrackId(const std::string& command, const std::vector<std::string>& operands) {
  const std::string example = fmt::format("quillet {} 1480068668 --json", command);
  if (operands.size() > 1) {
    throw CLIError(CLIError::Code::validation,
                   fmt::format("{} takes one track ID; got {}.", command, operands.size()),
                   {example});
  }
  const std::string_view operand = operands.empty() ? "" : trimmed(operands.front());
  if (operand.empty()) {
    throw CLIError(CLIError::Code::missingRequired, command + " needs a track ID.", {example});
  }
  const auto trackId = parseWhole(operand);
  if (trackId && *trackId > 0) return *trackId;
  throw CLIError(CLIError::Code::validation,
                 fmt::format("{} takes a track ID; got '{}'.", command, operand), {example});
}

std::int64_t numericTrackId(const std::vector<std::string>& operands, const std::string& complaint,
                            const std::string& example) {
  const auto trackId = operands.size() == 1 ? parseWhole(operands.front()) : std::nullopt;
  if (trackId && *trackId > 0) return *trackId;
  throw CLIError(operands.empty() ? CLIError::Code::missingRequired : CLIError::Code::validation,
                 complaint, {example});
}

}  // namespace quillet
