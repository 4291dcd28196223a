// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "analysis/search_command_line.h"

#include <fmt/format.h>

#include <algorithm>

#include "analysis/filter_options.h"
#include "base/text.h"

namespace quillet {

namespace {

/// Plain letters need no quotes; anything else that claims to be a storefront gets them.
std::string storefrontWord(std::string_view country) {
  const std::string lower = lowerAscii(country);
  const bool plain = std::ranges::all_of(lower, [](char c) { return c >= 'a' && c <= 'z'; });
  return plain && !lower.empty() ? std::string(country) : shellQuoted(country);
}

/// Nothing for the table's first row, which is what the search does without the option.
template <typename Enum, std::size_t N>
std::string caseOption(std::string_view option, Enum value, const EnumTable<Enum, N>& table) {
  if (value == table.front().value) return {};
  return fmt::format(" {} {}", option, textOf(table, value));
}

}  // namespace

std::string searchCommandLine(const SearchRequest& request) {
  std::string line = "quillet search " + searchTermWord(request.query);
  line += caseOption("--platform", request.platform, kPlatformWords);
  if (request.country) line += " --country " + storefrontWord(*request.country);
  line += filterOptions(request.filters);
  line += caseOption("--sort", request.sort, kSortOrderWords);
  return line + " --json";
}

std::string searchTermWord(std::string_view query) {
  return shellQuoted(query.starts_with('-') ? fmt::format(" {}", query) : std::string(query));
}

}  // namespace quillet
