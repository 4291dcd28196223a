// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/services/arguments.h"

#include <algorithm>
#include <cstddef>
#include <string_view>

#include "desktop/services/quillet_link.h"

namespace quillet {
namespace {

struct FlagRow {
  std::string_view word;
  bool DesktopArguments::* flag;
};

struct ValueRow {
  std::string_view word;
  std::optional<std::string> DesktopArguments::* value;
};

constexpr FlagRow kFlags[] = {
    {"--background", &DesktopArguments::isBackground},
    {"--check-prices", &DesktopArguments::checksPrices},
    {"--search-provider", &DesktopArguments::answersSearches},
};

constexpr ValueRow kValues[] = {
    {"--section", &DesktopArguments::section},
    {"--open", &DesktopArguments::opens},
    {"--new-search", &DesktopArguments::newSearch},
};

template <typename Row, std::size_t count>
const Row* findRow(const Row (&rows)[count], std::string_view word) {
  const auto* found = std::ranges::find(rows, word, &Row::word);
  return found == std::end(rows) ? nullptr : found;
}

/// The value at the front; absent where another option, or nothing, stands there.
std::optional<std::string> valueAt(std::span<const std::string> rest) {
  if (rest.empty() || rest.front().empty() || rest.front().starts_with("--")) return {};
  return rest.front();
}

/// What else the start asked for stays: a link only leads somewhere.
void follow(const DesktopArguments& link, DesktopArguments& parsed) {
  parsed.opens = link.opens;
  if (link.section) parsed.section = link.section;
  if (link.newSearch) parsed.newSearch = link.newSearch;
}

}  // namespace

DesktopArguments parseDesktopArguments(std::span<const std::string> arguments) {
  DesktopArguments parsed;
  while (!arguments.empty()) {
    const std::string& word = arguments.front();
    arguments = arguments.subspan(1);
    if (const FlagRow* row = findRow(kFlags, word)) parsed.*row->flag = true;
    const ValueRow* row = findRow(kValues, word);
    const auto value = row == nullptr ? std::nullopt : valueAt(arguments);
    if (!value) continue;
    parsed.*row->value = value;
    arguments = arguments.subspan(1);
  }
  const auto link = parsed.opens ? readQuilletLink(*parsed.opens) : std::nullopt;
  if (link) follow(*link, parsed);
  return parsed;
}

}  // namespace quillet
