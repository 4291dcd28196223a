// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/services/instance_message.h"
#include "fuzzing.h"

using namespace quillet;

void quillet::tryInput(std::string_view input) {
  using Arguments = std::vector<std::string>;
  const auto read = readInstanceMessage(input);
  const auto* arguments = std::get_if<Arguments>(&read);
  if (arguments == nullptr) return;
  const auto before = readInstanceMessage(input.substr(0, input.size() - 1));
  require(std::holds_alternative<IncompleteMessage>(before), "a message cut short is incomplete");
  const auto message = instanceMessage(*arguments);
  require(message.has_value(), "what was taken can be sent");
  const auto again = readInstanceMessage(*message);
  require(std::get<Arguments>(again) == *arguments, "arguments read back as they were sent");
}
