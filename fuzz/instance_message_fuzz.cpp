// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/instance_message.h"
#include "fuzzing.h"

using namespace quillet;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using Arguments = std::vector<std::string>;
  const std::string_view received = textOf(data, size);
  const auto read = readInstanceMessage(received);
  const auto* arguments = std::get_if<Arguments>(&read);
  if (arguments == nullptr) return 0;
  const auto before = readInstanceMessage(received.substr(0, size - 1));
  require(std::holds_alternative<IncompleteMessage>(before), "a message cut short is incomplete");
  const auto message = instanceMessage(*arguments);
  require(message.has_value(), "what was taken can be sent");
  const auto again = readInstanceMessage(*message);
  require(std::get<Arguments>(again) == *arguments, "arguments read back as they were sent");
  return 0;
}
