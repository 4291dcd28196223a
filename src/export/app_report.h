// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "analysis/described_app.h"
#include "analysis/maintenance_health.h"
#include "analysis/recorded_price.h"
#include "base/dates.h"
#include "system/locale_formats.h"
#include "system/time_zone.h"

namespace quillet {

/// Everything known about one app in one storefront.
struct AppKnowledge {
  DescribedApp app;
  std::string storefront;
  std::vector<AppReview> reviews;
  std::vector<RecordedPrice> prices;  ///< by date; without a currency: in the app's
};

/// When, where and for whom a report is made.
struct ReportOccasion {
  Instant now;  ///< the date of export, and what the maintenance verdict is judged at
  UtcOffsetAt zone;
  MaintenanceThresholds thresholds;
};

/// A row of the overview: a label and what is known.
struct ReportFact {
  enum class Kind { text, link };  ///< a link's text is a web address

  std::string label;
  std::string text;
  Kind kind = Kind::text;

  friend bool operator==(const ReportFact&, const ReportFact&) = default;
};

/// A purchase as the report's table has it; texts are empty where nothing is known.
struct ReportPurchase {
  std::string name;
  std::optional<double> price;
  std::string priceText;  ///< "4.99", "Free"
  bool isSubscription = false;
  std::string billing;  ///< "per month", "one-time"
  std::optional<double> pricePerYear;
  std::string perYearText;  ///< "$59.88/year"

  friend bool operator==(const ReportPurchase&, const ReportPurchase&) = default;
};

/// A recorded price as the report's table has it.
struct ReportPrice {
  RecordedPrice recorded;
  std::string day;   ///< "2026-11-20"; empty where it is not known
  std::string text;  ///< "4.99", "Free"

  friend bool operator==(const ReportPrice&, const ReportPrice&) = default;
};

/// What a report says, whatever its format. Absent facts are not known; texts are as the store
/// wrote them, for each format to escape.
struct AppReport {
  Instant exported;
  std::string exportedOn;  ///< the day in the user's time zone: "2026-11-20"
  std::string storefront;
  std::int64_t trackId = 0;
  std::string name;
  std::optional<std::string> developer;
  std::optional<std::string> bundleId;
  std::optional<double> price;
  std::string formattedPrice;
  std::optional<std::string> currency;
  std::optional<double> rating;
  std::optional<std::int64_t> ratingCount;
  std::optional<std::vector<std::int64_t>> ratingHistogram;  ///< from one star to five
  std::optional<std::string> genre;
  std::optional<std::string> version;
  std::optional<Instant> releaseDate;
  std::optional<Instant> lastUpdated;
  std::optional<std::int64_t> sizeBytes;
  std::optional<std::string> contentRating;
  MaintenanceHealth maintenance;
  std::optional<bool> hasSubscription;
  std::optional<std::string> storeURL;
  std::optional<std::vector<ReportPurchase>> inAppPurchases;  ///< empty: nothing is sold inside
  std::string purchaseCurrency;  ///< of all purchase prices; empty: not known, or said by each
  // Absent where the reader wants none of it.
  std::optional<std::vector<VersionEntry>> versionHistory;  ///< newest first
  std::optional<std::vector<AppReview>> reviews;
  std::optional<std::vector<ReportPrice>> priceHistory;
  std::string priceCurrency;  ///< of all recorded prices; empty likewise
  std::optional<std::string> description;
  std::vector<ReportFact> overview;  ///< in the order in which they are shown

  friend bool operator==(const AppReport&, const AppReport&) = default;
};

[[nodiscard]] AppReport appReport(const AppKnowledge& known, const ReportOccasion& occasion,
                                  const LocaleFormats& formats);

}  // namespace quillet
