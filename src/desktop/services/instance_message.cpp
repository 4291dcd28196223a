// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/services/instance_message.h"

#include <fmt/format.h>

#include <algorithm>

#include "base/numbers.h"
#include "base/text.h"

namespace quillet {
namespace {

// Sent and read by programs of different versions; never change what it means.
constexpr std::string_view kOpening = "quillet-arguments 1 ";

// More than anyone types, and little to hold for a sender that never ends.
constexpr std::size_t kLargestPayload = std::size_t{64} * 1024;
constexpr std::size_t kMostDigits = 5;
static_assert(kLargestPayload < 100'000);

bool isNumber(std::string_view text) {
  return !text.empty() && text.size() <= kMostDigits &&
         std::ranges::all_of(text, [](char c) { return c >= '0' && c <= '9'; });
}

std::vector<std::string> argumentsOf(std::string_view payload) {
  if (payload.empty()) return {};
  payload.remove_suffix(1);
  std::vector<std::string> arguments;
  for (const std::string_view argument : split(payload, '\0')) arguments.emplace_back(argument);
  return arguments;
}

}  // namespace

std::optional<std::string> instanceMessage(const std::vector<std::string>& arguments) {
  std::string payload;
  for (const std::string& argument : arguments) payload.append(argument).push_back('\0');
  if (payload.size() > kLargestPayload) return {};
  return fmt::format("{}{}\n{}", kOpening, payload.size(), payload);
}

std::variant<IncompleteMessage, BadMessage, std::vector<std::string>> readInstanceMessage(
    std::string_view received) {
  if (!received.starts_with(kOpening.substr(0, received.size()))) return BadMessage{};
  if (received.size() <= kOpening.size()) return IncompleteMessage{};
  received.remove_prefix(kOpening.size());

  const std::size_t lineEnd = received.substr(0, kMostDigits + 1).find('\n');
  if (lineEnd == std::string_view::npos) {
    if (isNumber(received)) return IncompleteMessage{};
    return BadMessage{};
  }
  if (!isNumber(received.substr(0, lineEnd))) return BadMessage{};
  const auto length = static_cast<std::size_t>(*parseWhole(received.substr(0, lineEnd)));
  received.remove_prefix(lineEnd + 1);

  if (length > kLargestPayload || received.size() > length) return BadMessage{};
  if (received.size() < length) return IncompleteMessage{};
  if (!received.empty() && received.back() != '\0') return BadMessage{};
  return argumentsOf(received);
}

}  // namespace quillet
