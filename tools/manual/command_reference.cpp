// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "manual/command_reference.h"

namespace quillet {

std::vector<const OptionRow*> optionsOf(const CommandRow& command) {
  std::vector<const OptionRow*> options;
  for (const OptionRow& option : optionRows()) {
    if (option.commands.contains(command.id)) options.push_back(&option);
  }
  return options;
}

std::vector<std::string_view> wordsFor(const OptionRow& option) {
  return option.words == nullptr ? std::vector<std::string_view>{} : option.words();
}

std::vector<std::string_view> operandWords(const CommandRow& command) {
  std::vector<std::string_view> words;
  if (command.id != CommandId::help) return words;
  for (const CommandRow& row : kCommands) words.push_back(row.word);
  return words;
}

std::string quotedForShell(std::string_view text) {
  std::string quoted = "'";
  for (const char character : text) {
    if (character == '\'') {
      quoted += "'\\''";
    } else {
      quoted += character;
    }
  }
  return quoted + "'";
}

std::string escaped(std::string_view text, std::string_view special) {
  std::string result;
  for (const char character : text) {
    if (special.find(character) != std::string_view::npos) result += '\\';
    result += character;
  }
  return result;
}

}  // namespace quillet
