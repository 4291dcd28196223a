// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "analysis/filter_words.h"

#include "base/numbers.h"

namespace quillet {

namespace {

using Words = std::vector<std::pair<std::string, std::string>>;

/// A pair, unless the filter is "any", the table's first row.
template <typename Enum, std::size_t N>
void addCase(Words& words, const char* key, Enum value, const EnumTable<Enum, N>& table) {
  if (value != table.front().value) words.emplace_back(key, textOf(table, value));
}

void addNumbers(Words& words, const AppFilters& filters) {
  if (filters.maxPrice) words.emplace_back("maxPrice", decimalText(*filters.maxPrice));
  if (filters.minRating > 0) words.emplace_back("minRating", decimalText(filters.minRating));
  if (filters.minRatingCount >= 1) {
    words.emplace_back("minRatings", std::to_string(filters.minRatingCount));
  }
}

struct ReleasedWords {
  Words& words;

  void operator()(const ReleasedWithin& filter) const {
    words.emplace_back("releasedWithin", std::to_string(filter.months));
  }
  void operator()(const ReleasedBefore& filter) const {
    words.emplace_back("releasedBefore", std::to_string(filter.year));
  }
  void operator()(const ReleasedFrom& filter) const {
    words.emplace_back("releasedAfter", std::to_string(filter.year));
  }
};

}  // namespace

std::vector<std::pair<std::string, std::string>> activeFilterWords(const AppFilters& filters) {
  Words words;
  addCase(words, "price", filters.price, kPriceFilterTexts);
  addNumbers(words, filters);
  addCase(words, "updatedWithin", filters.updatedWithin, kUpdatedFilterWords);
  addCase(words, "maxSize", filters.maxSize, kSizeFilterWords);
  if (filters.genre) words.emplace_back("genre", *filters.genre);
  addCase(words, "purchases", filters.purchases, kPurchaseFilterWords);
  addCase(words, "architecture", filters.architecture, kArchitectureFilterWords);
  if (filters.released) std::visit(ReleasedWords{words}, *filters.released);
  if (filters.runsOn) words.emplace_back("runsOn", filters.runsOn->atMost);
  if (filters.hideOwned) words.emplace_back("hideOwned", "true");
  return words;
}

}  // namespace quillet
