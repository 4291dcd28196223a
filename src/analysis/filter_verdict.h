// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <array>
#include <cstdint>

#include "analysis/filter_match.h"

namespace quillet {

/// What of the catalog was read into a record. What the catalog did not know stays unknown then.
struct CatalogReads {
  bool purchases = false;  ///< what is sold inside
  bool build = false;      ///< of a Mac app how it is compiled, and how it is rated

  friend bool operator==(const CatalogReads&, const CatalogReads&) = default;
};

/// What filters are judged with besides.
struct MatchTerms {
  TrackIds owned;
  Instant now{};
  UtcOffsetAt zone;
};

/// Whether an app passes the filters, as far as it is known: one that waits passes all that can be
/// judged, and depends on what is still to be read.
enum class FilterVerdict : std::uint8_t { passes, fails, needsPurchases, needsBuild };

/// Judges apps by one set of filters as matches() does, and tells apart what is unknown and what
/// was not read yet. A filter on the architecture is passed by Mac apps alone.
class FilterJudge {
 public:
  /// The terms outlive it.
  FilterJudge(const AppFilters& filters, const MatchTerms& terms);

  [[nodiscard]] FilterVerdict operator()(const ITunesApp& app, CatalogReads reads) const;

 private:
  const MatchTerms& terms_;
  bool readsPurchases_ = false;
  bool readsArchitecture_ = false;
  bool readsRatings_ = false;
  /// The filters without those that wait, by which of the three do.
  std::array<AppFilters, 8> judged_;
};

}  // namespace quillet
