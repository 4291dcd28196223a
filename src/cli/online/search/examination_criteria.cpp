// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "cli/online/search/examination_criteria.h"

namespace quillet {

ExaminationCriteria criteriaFor(const CLIOptions& options, const CommandServices& services) {
  ExaminationCriteria criteria;
  if (options.filters.hideOwned) criteria.ownedTrackIds = services.ownedTrackIds();
  criteria.filters = options.filters;
  criteria.sort = options.sort.value_or(SortOrder::relevance);
  criteria.limit = options.limit;
  criteria.storefront = options.country;
  criteria.now = services.clock.now();
  criteria.timeZone = services.timeZone;
  return criteria;
}

}  // namespace quillet
