// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include <fmt/format.h>

#include "manual/command_reference.h"
#include "manual/generated_files.h"
#include "skill_text.h"

namespace quillet {

namespace {

std::string optionNames(const CommandRow& command) {
  std::string names;
  for (const OptionRow* option : optionsOf(command)) {
    if (!names.empty()) names += ", ";
    names += fmt::format("`{}`", option->name);
  }
  return names;
}

}  // namespace

/// What people wrote, and every command with the options that it heeds.
std::string agentSkill() {
  std::string text(kSkillText);
  text += "\n## Every command\n\n| Command | Answers | Options |\n|---|---|---|\n";
  for (const CommandRow& command : kCommands)
    text += fmt::format("| `quillet {}` | {} | {} |\n", command.word, command.summary,
                        optionNames(command));
  return text;
}

}  // namespace quillet
