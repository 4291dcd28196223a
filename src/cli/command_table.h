// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <array>
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

/// What a command needs, and so where its handler lives: the network's in the online module, the
/// library's in the executable.
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
};

inline constexpr std::array<CommandRow, 17> kCommands{{
    {CommandId::search, "search", HelpTopic::search, "<term>", CommandNeed::network},
    {CommandId::info, "info", HelpTopic::info, "<track-id|bundle-id>", CommandNeed::network},
    {CommandId::priceHistory, "price-history", HelpTopic::prices, "<track-id>",
     CommandNeed::network},
    {CommandId::purchaseHistory, "purchase-history", HelpTopic::purchaseHistory, "<track-id>",
     CommandNeed::library},
    {CommandId::deals, "deals", HelpTopic::prices, "", CommandNeed::network},
    {CommandId::compare, "compare", HelpTopic::prices, "<track-id> <track-id> …",
     CommandNeed::network},
    {CommandId::storefronts, "storefronts", HelpTopic::prices, "<track-id>", CommandNeed::network},
    {CommandId::watchlist, "watchlist", HelpTopic::lists, "", CommandNeed::library},
    {CommandId::myApps, "my-apps", HelpTopic::lists, "", CommandNeed::library},
    {CommandId::collections, "collections", HelpTopic::lists, "[name]", CommandNeed::library},
    {CommandId::savedSearches, "saved-searches", HelpTopic::lists, "", CommandNeed::library},
    {CommandId::reviews, "reviews", HelpTopic::reviews, "<track-id>", CommandNeed::network},
    {CommandId::charts, "charts", HelpTopic::charts, "", CommandNeed::network},
    {CommandId::rankHistory, "rank-history", HelpTopic::charts, "<track-id>", CommandNeed::library},
    {CommandId::versions, "versions", HelpTopic::charts, "<track-id>", CommandNeed::network},
    {CommandId::screenshots, "screenshots", HelpTopic::screenshots, "<track-id|bundle-id>",
     CommandNeed::network},
    {CommandId::help, "help", HelpTopic::main, "[command]", CommandNeed::nothing},
}};

/// The command of exactly this word; null where there is none.
constexpr const CommandRow* findCommand(std::string_view word) {
  for (const CommandRow& row : kCommands) {
    if (row.word == word) return &row;
  }
  return nullptr;
}

}  // namespace quillet
