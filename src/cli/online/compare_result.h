// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "cli/online/app/app_summary.h"
#include "cli/online/app/purchase_summary.h"
#include "cli/streams.h"

namespace quillet {

/// How the lookup of what an app sells ended.
enum class PurchaseCheck { done, rateLimited, failed };

/// What is sold inside an app, as far as it could be read.
struct SoldInside {
  PurchaseCheck check = PurchaseCheck::failed;
  std::vector<InAppPurchase> purchases;
};

struct CLIComparison {
  struct Entry {
    CLIAppSummary app;
    std::vector<CLIPurchase> purchases;
    PurchaseCheck check = PurchaseCheck::failed;
    std::optional<double> firstYearCost;  ///< for people; not in JSON
  };

  std::string country;
  std::vector<Entry> entries;
  std::vector<std::int64_t> missing;
};

[[nodiscard]] CLIComparison::Entry comparedEntry(ITunesApp app, const SoldInside& sold,
                                                 const LocaleFormats& formats);

[[nodiscard]] std::string renderComparisonJson(const CLIComparison& comparison);

}  // namespace quillet
