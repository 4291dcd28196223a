// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <array>
#include <concepts>
#include <cstdint>
#include <string_view>

namespace quillet {

/// The help text that a command belongs to.
enum class HelpTopic {
  main,
  search,
  info,
  lists,
  reviews,
  screenshots,
  charts,
  prices,
  purchaseHistory,
};

/// What a command needs, and so where its handler lives: the network's in `cli/online`, the
/// library's in `cli/local`.
enum class CommandNeed { nothing, library, network };

enum class CommandId {
  search,
  info,
  priceHistory,
  purchaseHistory,
  deals,
  compare,
  storefronts,
  watchlist,
  myApps,
  collections,
  savedSearches,
  reviews,
  charts,
  rankHistory,
  versions,
  screenshots,
  help,
};

/// One command: one row.
struct CommandRow {
  CommandId id;
  std::string_view word;
  HelpTopic topic;
  std::string_view operands;  ///< as a usage line shows them
  CommandNeed need;
  std::string_view summary;             ///< one line, of fewer than 50 characters
  std::string_view shortOperands = {};  ///< where the list of commands has no room for `operands`

  [[nodiscard]] constexpr bool takesTrackIds() const {
    return operands.find("track-id") != std::string_view::npos;
  }
};

inline constexpr std::array<CommandRow, 17> kCommands{{
    {CommandId::search, "search", HelpTopic::search, "<term>", CommandNeed::network,
     "Search the App Store"},
    {CommandId::info, "info", HelpTopic::info, "<track-id|bundle-id>", CommandNeed::network,
     "Everything known about one app"},
    {CommandId::priceHistory, "price-history", HelpTopic::prices, "<track-id>",
     CommandNeed::network, "What it has cost over time"},
    {CommandId::purchaseHistory, "purchase-history", HelpTopic::purchaseHistory, "<track-id>",
     CommandNeed::library, "In-app and subscription prices (watched apps)"},
    {CommandId::deals, "deals", HelpTopic::prices, "", CommandNeed::network, "Today's price drops"},
    {CommandId::compare, "compare", HelpTopic::prices, "<track-id> <track-id> …",
     CommandNeed::network, "Side by side, with cost per year", "<id> <id> …"},
    {CommandId::storefronts, "storefronts", HelpTopic::prices, "<track-id>", CommandNeed::network,
     "One app priced around the world"},
    {CommandId::watchlist, "watchlist", HelpTopic::lists, "", CommandNeed::library,
     "Apps you are watching"},
    {CommandId::myApps, "my-apps", HelpTopic::lists, "", CommandNeed::library,
     "Apps you own or have installed"},
    {CommandId::collections, "collections", HelpTopic::lists, "[name]", CommandNeed::library,
     "Your collections"},
    {CommandId::savedSearches, "saved-searches", HelpTopic::lists, "", CommandNeed::library,
     "Your saved searches, as commands"},
    {CommandId::reviews, "reviews", HelpTopic::reviews, "<track-id>", CommandNeed::network,
     "What customers wrote"},
    {CommandId::charts, "charts", HelpTopic::charts, "", CommandNeed::network,
     "Top free and paid (and grossing on iOS)"},
    {CommandId::rankHistory, "rank-history", HelpTopic::charts, "<track-id>", CommandNeed::library,
     "Where it has ranked, day by day"},
    {CommandId::versions, "versions", HelpTopic::charts, "<track-id>", CommandNeed::network,
     "Release history and upkeep"},
    {CommandId::screenshots, "screenshots", HelpTopic::screenshots, "<track-id|bundle-id>",
     CommandNeed::network, "Links to the original screenshots", "<track-id>"},
    {CommandId::help, "help", HelpTopic::main, "[command]", CommandNeed::nothing, "This help"},
}};

/// Some of the commands.
class CommandSet {
 public:
  template <std::same_as<CommandId>... Ids>
  constexpr explicit CommandSet(Ids... ids) {
    (add(ids), ...);
  }
  constexpr void add(CommandId id) { bits_ |= bit(id); }
  [[nodiscard]] constexpr bool contains(CommandId id) const { return (bits_ & bit(id)) != 0; }

 private:
  static constexpr std::uint32_t bit(CommandId id) {
    return std::uint32_t{1} << static_cast<unsigned>(id);
  }

  std::uint32_t bits_ = 0;
};
static_assert(kCommands.size() <= 32);

/// They print commands to copy, whose lines are never folded.
inline constexpr CommandSet kPrintsCommands(CommandId::screenshots, CommandId::savedSearches);

/// An option that is no command's own: the dispatcher answers it.
struct SwitchRow {
  std::string_view name;
  std::string_view shortName;
  std::string_view summary;

  constexpr bool isNamed(std::string_view argument) const {
    return argument == name || argument == shortName;
  }
};

inline constexpr SwitchRow kHelpSwitch{"--help", "-h", "Print help"};  ///< after a command too
inline constexpr SwitchRow kVersionSwitch{"--version", "-v", "Print the version"};

/// The command of exactly this word; null where there is none.
constexpr const CommandRow* findCommand(std::string_view word) {
  for (const CommandRow& row : kCommands) {
    if (row.word == word) return &row;
  }
  return nullptr;
}

}  // namespace quillet
