// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "cli/track_id_operand.h"

#include <fmt/format.h>

#include "base/store_links.h"
#include "base/text.h"
#include "cli/cli_error.h"

namespace quillet {

namespace {

std::string_view firstOf(const std::vector<std::string>& operands) {
  return operands.empty() ? "" : trimmed(operands.front());
}

std::vector<std::string> withBundleIdHint(const std::string& suggestion, std::string_view operand) {
  std::vector<std::string> suggestions{suggestion};
  for (std::string& hint : bundleIdHints(operand)) suggestions.push_back(std::move(hint));
  return suggestions;
}

}  // namespace

std::vector<std::string> bundleIdHints(std::string_view operand) {
  constexpr std::string_view kLetters =
      "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789.-_";
  operand = trimmed(operand);
  const bool isBundleId = operand.find('.') != std::string_view::npos &&
                          !operand.starts_with('-') &&
                          operand.find_first_not_of(kLetters) == std::string_view::npos;
  if (!isBundleId) return {};
  return {fmt::format("quillet info {} tells its track ID", operand)};
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
                 fmt::format("{} takes a track ID; got '{}'.", command, operand),
                 withBundleIdHint(example, operand));
}

std::int64_t numericTrackId(const std::vector<std::string>& operands, const std::string& complaint,
                            const std::string& example) {
  const auto trackId = operands.size() == 1 ? trackIdIn(operands.front()) : std::nullopt;
  if (trackId) return *trackId;
  const std::string_view operand = firstOf(operands);
  throw CLIError(operand.empty() ? CLIError::Code::missingRequired : CLIError::Code::validation,
                 complaint, withBundleIdHint(example, operands.size() == 1 ? operand : ""));
}

}  // namespace quillet
