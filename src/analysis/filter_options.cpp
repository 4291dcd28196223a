// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "analysis/filter_options.h"

#include <fmt/format.h>

#include <string_view>
#include <vector>

#include "base/numbers.h"
#include "base/text.h"

namespace quillet {

namespace {

constexpr std::string_view kDigits = "0123456789";

/// Digits and dots that compare equal to the version: pieces that are empty are dropped, a piece
/// counts by its leading digits. The command line takes no other form.
std::string plainVersion(std::string_view version) {
  std::vector<std::string> pieces;
  for (const std::string_view piece : split(version, '.')) {
    const std::string_view digits = piece.substr(0, piece.find_first_not_of(kDigits));
    if (!piece.empty()) pieces.emplace_back(digits.empty() ? "0" : digits);
  }
  return pieces.empty() ? "0" : join(pieces, ".");
}

/// Words, each with a blank before it.
class CommandLine {
 public:
  void add(std::string_view word) {
    text_ += ' ';
    text_ += word;
  }

  void add(std::string_view option, std::string_view value) {
    add(option);
    add(value);
  }

  /// Nothing for the table's first row, which is what the search does without the option.
  template <typename Enum, std::size_t N>
  void addCase(std::string_view option, Enum value, const EnumTable<Enum, N>& table) {
    if (value != table.front().value) add(option, textOf(table, value));
  }

  [[nodiscard]] std::string take() { return std::move(text_); }

 private:
  std::string text_;
};

struct ReleasedOption {
  CommandLine& line;

  void operator()(const ReleasedWithin& filter) const {
    line.add("--released-within", std::to_string(filter.months));
  }
  void operator()(const ReleasedBefore& filter) const {
    line.add("--released-before", fmt::format("{:04}", filter.year));
  }
  void operator()(const ReleasedFrom& filter) const {
    line.add("--released-after", fmt::format("{:04}", filter.year));
  }
};

void addPriceAndRatings(CommandLine& line, const AppFilters& filters) {
  if (filters.price != PriceFilter::any) {
    line.add(fmt::format("--{}", textOf(kPriceFilterTexts, filters.price)));
  }
  if (filters.maxPrice) line.add("--max-price", decimalText(*filters.maxPrice));
  if (filters.minRating > 0) line.add("--min-rating", decimalText(filters.minRating));
  if (filters.minRatingCount >= 1) {
    line.add("--min-ratings", std::to_string(filters.minRatingCount));
  }
}

void addFilters(CommandLine& line, const AppFilters& filters) {
  addPriceAndRatings(line, filters);
  if (filters.genre) line.add("--genre", shellQuoted(*filters.genre));
  line.addCase("--updated-within", filters.updatedWithin, kUpdatedFilterWords);
  line.addCase("--max-size", filters.maxSize, kSizeFilterWords);
  line.addCase("--purchases", filters.purchases, kPurchaseFilterWords);
  line.addCase("--architecture", filters.architecture, kArchitectureFilterWords);
  if (filters.runsOn) line.add("--runs-on", plainVersion(filters.runsOn->atMost));
  if (filters.released) std::visit(ReleasedOption{line}, *filters.released);
  if (filters.hideOwned) line.add("--hide-owned");
}

}  // namespace

std::string filterOptions(const AppFilters& filters) {
  CommandLine line;
  addFilters(line, filters);
  return line.take();
}

}  // namespace quillet
