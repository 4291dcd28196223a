// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include <fmt/format.h>

#include "manual/command_reference.h"
#include "manual/generated_files.h"

namespace quillet {

namespace {

using std::string_view;

// The command is the first word, whatever words follow: a term can be a command's name.
constexpr string_view kHead =
    R"(# Completions of quillet for fish, made from the program's own tables.

function __quillet_runs
    set -l words (commandline -opc)
    if test (count $argv) -eq 0
        test (count $words) -eq 1
    else
        test (count $words) -gt 1; and contains -- $words[2] $argv
    end
end

complete -c quillet -f
)";

std::string quoted(string_view text) { return fmt::format("'{}'", escaped(text, "'\\")); }

/// What `complete -a` takes: the words, which it splits as a command line.
std::string wordList(const std::vector<string_view>& words) {
  std::string list;
  for (const string_view word : words) {
    if (!list.empty()) list += ' ';
    list += word.find_first_of(" &'") == string_view::npos ? std::string(word) : quoted(word);
  }
  return quoted(list);
}

std::string rule(const std::string& commands, const std::string& what, string_view summary) {
  return fmt::format("complete -c quillet -n {} {} -d {}\n",
                     quoted(commands.empty() ? "__quillet_runs" : "__quillet_runs " + commands),
                     what, quoted(summary));
}

std::string names(string_view name, string_view shortName) {
  std::string text = fmt::format("-l {}", name.substr(2));
  if (!shortName.empty()) text += fmt::format(" -s {}", shortName.substr(1));
  return text;
}

std::string switchRule(const std::string& commands, const SwitchRow& row) {
  return rule(commands, names(row.name, row.shortName), row.summary);
}

template <typename Predicate>
std::string commandsThat(Predicate predicate) {
  std::vector<string_view> words;
  for (const CommandRow& command : kCommands) {
    if (predicate(command)) words.push_back(command.word);
  }
  return fmt::format("{}", fmt::join(words, " "));
}

std::string optionRule(const OptionRow& option) {
  std::string what = names(option.name, option.shortName);
  if (!option.placeholder.empty()) what += " -x";
  if (const auto words = wordsFor(option); !words.empty()) what += " -a " + wordList(words);
  return rule(
      commandsThat([&option](const CommandRow& row) { return option.commands.contains(row.id); }),
      what, option.summary);
}

}  // namespace

std::string fishCompletion() {
  std::string text(kHead);
  for (const CommandRow& command : kCommands) {
    text += rule("", "-a " + std::string(command.word), command.summary);
    for (const string_view word : operandWords(command)) {
      text +=
          rule(std::string(command.word), "-a " + std::string(word), findCommand(word)->summary);
    }
  }
  for (const SwitchRow& row : kFirstSwitches) text += switchRule("", row);
  text += switchRule(commandsThat([](const CommandRow&) { return true; }), kHelpSwitch);
  for (const OptionRow& option : optionRows()) text += optionRule(option);
  return text;
}

}  // namespace quillet
