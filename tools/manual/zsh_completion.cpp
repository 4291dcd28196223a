// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include <fmt/format.h>

#include "manual/command_reference.h"
#include "manual/generated_files.h"

namespace quillet {

namespace {

using std::string_view;

constexpr string_view kHead = R"(#compdef quillet
# Completions of quillet for zsh, made from the program's own tables.

_quillet() {
  if (( CURRENT == 2 )); then
    local -a commands switches
)";

constexpr string_view kAfterFirstWords = R"(    _describe -t commands command commands
    _describe -o -t options option switches
    return
  fi
  shift words
  (( CURRENT-- ))
  case $words[1] in
)";

constexpr string_view kTail = R"zsh(  esac
}

_quillet "$@"
)zsh";

/// "(one two\ words)", or a blank: anything, and nothing to offer.
std::string wordAction(const std::vector<string_view>& words) {
  if (words.empty()) return " ";
  std::string action;
  for (const string_view word : words) {
    action += action.empty() ? '(' : ' ';
    action += escaped(word, R"( &'"\()|;<>*?$`)");
  }
  return action + ")";
}

std::string described(string_view word, string_view summary) {
  return quotedForShell(fmt::format("{}:{}", escaped(word, ":"), escaped(summary, ":\\")));
}

/// One argument of _arguments; `value` is empty, or ":message:action".
std::string optionArgument(string_view name, string_view shortName, string_view summary,
                           const std::string& value) {
  const std::string rest = quotedForShell(fmt::format("[{}]{}", escaped(summary, "[]\\"), value));
  if (shortName.empty()) return fmt::format(" \\\n        {}{}", name, rest);
  return fmt::format(" \\\n        '({0} {1})'{{{0},{1}}}{2}", shortName, name, rest);
}

std::string argumentOf(const OptionRow& option) {
  std::string value;
  if (!option.placeholder.empty()) {
    value = fmt::format(":{}:{}", escaped(option.placeholder, ":"), wordAction(wordsFor(option)));
  }
  return optionArgument(option.name, option.shortName, option.summary, value);
}

std::string commandCase(const CommandRow& command) {
  std::string text = fmt::format("    {})\n      _arguments", command.word);
  for (const OptionRow* option : optionsOf(command)) text += argumentOf(*option);
  text += optionArgument(kHelpSwitch.name, kHelpSwitch.shortName, kHelpSwitch.summary, "");
  if (!command.operands.empty()) {
    const std::string action = wordAction(operandWords(command));
    text += " \\\n        " +
            quotedForShell(fmt::format("*:{}:{}", escaped(command.operands, ":"), action));
  }
  return text + "\n      ;;\n";
}

}  // namespace

std::string zshCompletion() {
  std::string text(kHead);
  text += "    commands=(\n";
  for (const CommandRow& command : kCommands) {
    text += fmt::format("      {}\n", described(command.word, command.summary));
  }
  text += "    )\n    switches=(\n";
  for (const SwitchRow& row : kFirstSwitches) {
    for (const string_view word : {row.name, row.shortName}) {
      if (!word.empty()) text += fmt::format("      {}\n", described(word, row.summary));
    }
  }
  text += "    )\n" + std::string(kAfterFirstWords);
  for (const CommandRow& command : kCommands) text += commandCase(command);
  return text + std::string(kTail);
}

}  // namespace quillet
