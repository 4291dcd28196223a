// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "analysis/cost_of_use.h"
#include "cli/online/app/app_summary.h"
#include "cli/online/app/purchase_summary.h"
#include "cli/streams.h"
#include "queries/app_comparison.h"

namespace quillet {

struct CLIComparison {
  struct Entry {
    CLIAppSummary app;
    std::vector<CLIPurchase> purchases;
    PurchaseCheck check = PurchaseCheck::failed;
    std::optional<double> firstYearCost;
    SubscriptionCost subscription;  ///< for people; not in JSON
  };

  std::string country;
  std::vector<Entry> entries;
  std::vector<std::int64_t> missing;
};

[[nodiscard]] CLIComparison::Entry comparedEntry(const ComparedApp& compared,
                                                 const LocaleFormats& formats);

[[nodiscard]] std::string renderComparisonJson(const CLIComparison& comparison);

}  // namespace quillet
