// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "cli/help.h"

#include <fmt/format.h>

#include <ranges>

#include "base/text.h"
#include "cli/command_table.h"
#include "cli/help_texts.h"
#include "store/records/app_genre.h"
#include "store/records/storefronts.h"

namespace quillet {

namespace {

constexpr std::size_t kGenreColumn = 36;
constexpr std::size_t kGenreWidth = 38;

std::optional<std::string> unlessEmpty(std::string_view text) {
  if (text.empty()) return {};
  return std::string(text);
}

std::string genreList() {
  return fmt::format("{}", fmt::join(kAppGenres | std::views::transform(&AppGenre::name), ", "));
}

/// Category names are plain ASCII, so a width is a number of bytes here; the executable that
/// prints this does without the library that counts characters.
std::string wrappedGenres() {
  const std::string list = genreList();
  std::vector<std::string> lines;
  for (const std::string_view word : split(list, ' ')) {
    if (lines.empty() || lines.back().size() + 1 + word.size() > kGenreWidth) {
      lines.emplace_back(word);
    } else {
      lines.back().append(" ").append(word);
    }
  }
  return join(lines, '\n' + std::string(kGenreColumn, ' '));
}

HelpSections sectionsOf(const help_texts::TopicText& text) {
  return {std::string(text.about), std::string(text.usage), text.notesHeading,
          std::string(text.notes), std::string(text.examples)};
}

HelpSections chartsHelp() {
  HelpSections help = sectionsOf(help_texts::kCharts);
  help.usage = fmt::format(help_texts::kCharts.usage, wrappedGenres());
  return help;
}

HelpSections pricesHelp() {
  HelpSections help = sectionsOf(help_texts::kPrices);
  help.about = fmt::format(help_texts::kPrices.about, fmt::join(kTrackedStorefronts, ", "));
  return help;
}

std::string joined(const HelpSections& help) {
  std::string text = fmt::format("{}\n\n{}", help.about, help.usage);
  if (!help.notes.empty()) text += fmt::format("\n\n{}{}", help.notesHeading, help.notes);
  return fmt::format("{}\n\n{}", text, help.examples);
}

std::string commandList() {
  std::string text;
  for (const CommandRow& row : kCommands) {
    const auto operands = row.shortOperands.empty() ? row.operands : row.shortOperands;
    text += fmt::format("  {:<29} {}\n", fmt::format("{} {}", row.word, operands), row.summary);
  }
  return text;
}

std::string mainHelp(const ProgramVersion& version) {
  return fmt::format("{}{}{}{}", versionText(version), help_texts::kMainBeforeCommands,
                     commandList(), help_texts::kMainAfterCommands);
}

}  // namespace

ProgramVersion programVersion() {
  return {unlessEmpty(QUILLET_VERSION), unlessEmpty(QUILLET_BUILD_NUMBER)};
}

std::string versionText(const ProgramVersion& version) {
  return fmt::format("quillet {} (build {})", version.shortVersion.value_or("unknown"),
                     version.buildNumber.value_or("?"));
}

HelpSections helpSections(HelpTopic topic) {
  switch (topic) {
    case HelpTopic::main: break;
    case HelpTopic::search: return sectionsOf(help_texts::kSearch);
    case HelpTopic::info: return sectionsOf(help_texts::kInfo);
    case HelpTopic::lists: return sectionsOf(help_texts::kLists);
    case HelpTopic::reviews: return sectionsOf(help_texts::kReviews);
    case HelpTopic::screenshots: return sectionsOf(help_texts::kScreenshots);
    case HelpTopic::charts: return chartsHelp();
    case HelpTopic::prices: return pricesHelp();
    case HelpTopic::purchaseHistory: return sectionsOf(help_texts::kPurchaseHistory);
  }
  return {};
}

std::string helpText(std::string_view word, const ProgramVersion& version) {
  const CommandRow* command = findCommand(word);
  if (command == nullptr || command->topic == HelpTopic::main) return mainHelp(version);
  return joined(helpSections(command->topic));
}

}  // namespace quillet
