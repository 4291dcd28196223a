// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "analysis/filter_counts.h"

namespace quillet {

namespace {

std::optional<std::size_t> countOf(std::span<const ITunesApp> apps,
                                   std::span<const CatalogReads> reads, const FilterJudge& judge) {
  std::size_t count = 0;
  for (std::size_t i = 0; i < apps.size(); ++i) {
    const FilterVerdict verdict = judge(apps[i], reads[i]);
    if (verdict == FilterVerdict::fails) continue;
    if (verdict != FilterVerdict::passes) return {};
    ++count;
  }
  return count;
}

}  // namespace

std::vector<std::optional<std::size_t>> filterCounts(std::span<const ITunesApp> apps,
                                                     std::span<const CatalogReads> reads,
                                                     std::span<const AppFilters> choices,
                                                     const MatchTerms& terms) {
  std::vector<std::optional<std::size_t>> counts;
  counts.reserve(choices.size());
  for (const AppFilters& choice : choices)
    counts.push_back(countOf(apps, reads, FilterJudge(choice, terms)));
  return counts;
}

}  // namespace quillet
