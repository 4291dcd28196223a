// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "analysis/described_app.h"
#include "base/json_writer.h"
#include "system/locale_formats.h"

namespace quillet {

/// One app in a list, as JSON shows it. What is not known is left out.
struct CLIAppSummary {
  std::int64_t trackId = 0;
  std::string name;
  std::optional<std::string> seller;
  std::optional<std::string> bundleId;
  std::optional<std::string> kind;
  std::optional<double> price;
  std::optional<std::string> formattedPrice;
  std::optional<std::string> currency;
  std::optional<bool> free;
  std::optional<double> rating;
  std::optional<std::int64_t> ratingCount;
  std::optional<std::string> genre;
  std::optional<std::vector<std::string>> genres;
  std::optional<Instant> releaseDate;
  std::optional<Instant> lastUpdated;
  std::optional<std::string> version;
  std::optional<std::string> minimumOS;
  std::optional<std::int64_t> sizeBytes;
  std::optional<bool> hasInAppPurchases;
  std::optional<bool> hasSubscription;
  std::optional<bool> needsRosetta;
  std::optional<InsideCost> insideCost;  ///< for people; not in JSON
  std::optional<std::string> storeURL;
};

[[nodiscard]] CLIAppSummary summaryOf(DescribedApp app, const LocaleFormats& formats);
[[nodiscard]] CLIAppSummary summaryOf(ITunesApp app, const LocaleFormats& formats);

void writeSummary(JsonWriter& writer, const CLIAppSummary& summary);

}  // namespace quillet
