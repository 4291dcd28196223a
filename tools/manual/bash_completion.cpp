// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include <fmt/format.h>

#include "manual/command_reference.h"
#include "manual/generated_files.h"

namespace quillet {

namespace {

using Words = std::vector<std::string_view>;

constexpr std::string_view kHead =
    R"sh(# Completions of quillet for bash, made from the program's own tables.

_quillet() {
  local current=${COMP_WORDS[COMP_CWORD]} previous=${COMP_WORDS[COMP_CWORD-1]} words='' word
  COMPREPLY=()
)sh";

// A word with blanks is offered quoted, as far as the typed one is not quoted already, so the
// candidates are compared by hand.
constexpr std::string_view kTail = R"sh(  while IFS= read -r word; do
    [[ $word ]] || continue
    [[ $current == [\"\']* ]] || printf -v word '%q' "$word"
    [[ $word == "${current#[\"\']}"* ]] && COMPREPLY+=("$word")
  done <<<"$words"
}

complete -F _quillet quillet
)sh";

std::string lines(const Words& words) {
  return quotedForShell(fmt::format("{}", fmt::join(words, "\n")));
}

void add(Words& words, const SwitchRow& row) {
  words.insert(words.end(), {row.name, row.shortName});
}

std::string firstWords() {
  Words words;
  for (const CommandRow& command : kCommands) words.push_back(command.word);
  for (const SwitchRow& row : kFirstSwitches) add(words, row);
  return lines(words);
}

std::string wordsAfter(const CommandRow& command) {
  Words words = operandWords(command);
  for (const OptionRow* option : optionsOf(command)) {
    words.push_back(option->name);
    if (!option->shortName.empty()) words.push_back(option->shortName);
  }
  add(words, kHelpSwitch);
  return lines(words);
}

std::string valueCase(const OptionRow& option) {
  if (option.placeholder.empty()) return {};
  const std::string names = option.shortName.empty()
                                ? std::string(option.name)
                                : fmt::format("{} | {}", option.name, option.shortName);
  return fmt::format("      {}) words={} ;;\n", names, lines(wordsFor(option)));
}

}  // namespace

std::string bashCompletion() {
  std::string text(kHead);
  text += fmt::format("  if [[ $COMP_CWORD -eq 1 ]]; then\n    words={}\n  else\n", firstWords());
  text += "    case ${COMP_WORDS[1]} in\n";
  for (const CommandRow& command : kCommands) {
    text += fmt::format("      {}) words={} ;;\n", command.word, wordsAfter(command));
  }
  text += "    esac\n    case $previous in\n";
  for (const OptionRow& option : optionRows()) text += valueCase(option);
  return text + "    esac\n  fi\n" + std::string(kTail);
}

}  // namespace quillet
