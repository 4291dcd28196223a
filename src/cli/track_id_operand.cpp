// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "cli/track_id_operand.h"

#include <fmt/format.h>

#include "base/numbers.h"
#include "base/text.h"
#include "cli/cli_error.h"

namespace quillet {

namespace {

std::string_view firstOf(const std::vector<std::string>& operands) {
  return operands.empty() ? "" : trimmed(operands.front());
}

}  // namespace

std::optional<std::int64_t> trackIdIn(std::string_view operand) {
  operand = trimmed(operand);
  if (operand.find_first_not_of("0123456789") != std::string_view::npos) return {};
  const auto trackId = parseWhole(operand);
  return trackId > 0 ? trackId : std::nullopt;
}

std::int64_t soleTrackId(const std::string& command, const std::vector<std::string>& operands) {
  const std::string example = fmt::format("quillet {} 1480068668 --json", command);
  if (operands.size() > 1) {
    throw CLIError(CLIError::Code::validation,
                   fmt::format("{} takes one track ID; got {}.", command, operands.size()),
                   {example});
  }
  const std::string_view operand = firstOf(operands);
  if (operand.empty()) {
    throw CLIError(CLIError::Code::missingRequired, command + " needs a track ID.", {example});
  }
  if (const auto trackId = trackIdIn(operand)) return *trackId;
  throw CLIError(CLIError::Code::validation,
                 fmt::format("{} takes a track ID; got '{}'.", command, operand), {example});
}

std::int64_t numericTrackId(const std::vector<std::string>& operands, const std::string& complaint,
                            const std::string& example) {
  const auto trackId = operands.size() == 1 ? trackIdIn(operands.front()) : std::nullopt;
  if (trackId) return *trackId;
  throw CLIError(
      firstOf(operands).empty() ? CLIError::Code::missingRequired : CLIError::Code::validation,
      complaint, {example});
}

}  // namespace quillet
