// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "analysis/filter_verdict.h"

namespace quillet {

namespace {

// Which filters wait for what was not read.
constexpr std::size_t kPurchases = 1;
constexpr std::size_t kArchitecture = 2;
constexpr std::size_t kRatings = 4;

AppFilters without(AppFilters filters, std::size_t waiting) {
  if ((waiting & kPurchases) != 0) filters.purchases = PurchaseFilter::any;
  if ((waiting & kArchitecture) != 0) filters.architecture = ArchitectureFilter::any;
  if ((waiting & kRatings) != 0) {
    filters.minRating = 0;
    filters.minRatingCount = 0;
  }
  return filters;
}

}  // namespace

FilterJudge::FilterJudge(const AppFilters& filters, const MatchTerms& terms)
    : terms_(terms),
      readsPurchases_(readsPurchases(filters)),
      readsArchitecture_(readsArchitecture(filters)),
      readsRatings_(filters.minRating > 0 || filters.minRatingCount >= 1) {
  for (std::size_t waiting = 0; waiting < judged_.size(); ++waiting)
    judged_.at(waiting) = without(filters, waiting);
}

FilterVerdict FilterJudge::operator()(const ITunesApp& app, CatalogReads reads) const {
  if (readsArchitecture_ && !isMacApp(app)) return FilterVerdict::fails;
  std::size_t waiting = 0;
  if (readsPurchases_ && !reads.purchases) waiting |= kPurchases;
  if (readsArchitecture_ && !reads.build) waiting |= kArchitecture;
  if (readsRatings_ && !reads.build && hasUnknownRating(app)) waiting |= kRatings;
  if (!matches(app, judged_[waiting], terms_.owned, terms_.now, terms_.zone))
    return FilterVerdict::fails;
  if ((waiting & kPurchases) != 0) return FilterVerdict::needsPurchases;
  return waiting == 0 ? FilterVerdict::passes : FilterVerdict::needsBuild;
}

}  // namespace quillet
