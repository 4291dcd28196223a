// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "manual/generated_files.h"

#include <gtest/gtest.h>

#include <cctype>

#include "base/text.h"
#include "cli/help.h"
#include "manual/command_reference.h"

namespace quillet {
namespace {

/// Whether `word` stands in the text with nothing around it that could belong to a longer one.
bool holdsWord(std::string_view text, std::string_view word) {
  const auto joins = [text](std::size_t at) {
    return at < text.size() && (std::isalnum(static_cast<unsigned char>(text[at])) != 0 ||
                                text[at] == '-' || text[at] == '_');
  };
  for (auto at = text.find(word); at != std::string_view::npos; at = text.find(word, at + 1)) {
    if (!joins(at - 1) && !joins(at + word.size())) return true;
  }
  return false;
}

std::string withoutRoff(std::string text) {
  for (const std::string_view mark : {"\\fB", "\\fR", "\\%"}) {
    for (std::size_t at = 0; (at = text.find(mark, at)) != std::string::npos;) {
      text.erase(at, mark.size());
    }
  }
  for (std::size_t at = 0; (at = text.find("\\-", at)) != std::string::npos;) text.erase(at, 1);
  return text;
}

TEST(ManualPage, TellsOfEveryCommandAndOption) {
  const std::string page = withoutRoff(manualPage());
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
