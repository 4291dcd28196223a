// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "manual/generated_files.h"

#include <gtest/gtest.h>

#include <regex>

#include "cli/help.h"
#include "manual/command_reference.h"

namespace quillet {
namespace {

/// Whether `word` stands in the text with nothing around it that could belong to a longer one.
bool holdsWord(const std::string& text, std::string_view word) {
  return std::regex_search(text, std::regex(fmt::format(R"((^|[^\w-]){}($|[^\w-]))", word)));
}

TEST(ManualPage, TellsOfEveryCommandAndOption) {
  const std::string page = std::regex_replace(manualPage(), std::regex(R"(\\(f[BR]|%|(?=-)))"), "");
  std::vector<std::string> names{"--help", "--version"};
  for (const CommandRow& row : kCommands) names.push_back(fmt::format("quillet {}", row.word));
  for (const OptionRow& row : optionRows()) {
    names.emplace_back(row.name);
    if (!row.shortName.empty()) names.emplace_back(row.shortName);
  }
  for (const std::string& name : names) EXPECT_TRUE(holdsWord(page, name)) << name;
}

TEST(GeneratedFiles, OfferTheWordsThatThePlaceholdersName) {
  for (const OptionRow& option : optionRows()) {
    if (option.placeholder.find('|') == std::string_view::npos) continue;
    EXPECT_EQ(fmt::format("<{}>", fmt::join(wordsFor(option), "|")), option.placeholder);
  }
}

/// A word that the parser refuses must not be offered.
TEST(GeneratedFiles, OfferOnlyWordsThatAreTaken) {
  for (const OptionRow& option : optionRows()) {
    for (const std::string_view word : wordsFor(option)) {
      const std::string line[] = {std::string(option.name), std::string(word)};
      EXPECT_NO_THROW((void)parseOptions(line, "us")) << option.name << ' ' << word;
    }
  }
}

/// Whether the command, or one that shares its help, heeds the option.
bool isHeededWhere(HelpTopic topic, const OptionRow& option) {
  return std::any_of(kCommands.begin(), kCommands.end(), [&](const CommandRow& command) {
    return command.topic == topic && option.commands.contains(command.id);
  });
}

TEST(GeneratedFiles, OfferWhatTheHelpTellsOf) {
  for (const CommandRow& command : kCommands) {
    if (command.topic == HelpTopic::main) continue;
    const std::string help = helpText(command.word, {});
    for (const OptionRow& option : optionRows()) {
      if (!holdsWord(help, option.name)) continue;
      EXPECT_TRUE(isHeededWhere(command.topic, option)) << command.word << ' ' << option.name;
    }
  }
}

}  // namespace
}  // namespace quillet
