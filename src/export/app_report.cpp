// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "export/app_report.h"

#include <fmt/format.h>

#include <algorithm>

#include "analysis/billing_period.h"
#include "analysis/purchase_cost.h"
#include "export/report_overview.h"
#include "store/records/display_price.h"

namespace quillet {

namespace {

using Text = std::optional<std::string>;

Text unlessEmpty(const Text& text) { return text.value_or("").empty() ? Text() : text; }

/// "4.99", and the currency behind it where the table as a whole does not say it.
std::string priceText(double price, const std::string& currency) {
  if (price == 0) return std::string(kFreeText);
  return fmt::format("{:.2f}{}{}", price, currency.empty() ? "" : " ", currency);
}

/// The currency of all items; empty where they have several or one is not known.
template <typename Item>
std::string commonCurrency(const std::vector<Item>& items, const std::string& ofApp) {
  const auto currencyOf = [&](const Item& item) { return item.currency.value_or(ofApp); };
  if (items.empty()) return {};
  const std::string first = currencyOf(items.front());
  const auto agrees = [&](const Item& item) { return currencyOf(item) == first; };
  return std::all_of(items.begin(), items.end(), agrees) ? first : std::string();
}

std::string billingOf(const InAppPurchase& purchase) {
  if (!purchase.isSubscription) return "one-time";
  return billingText(purchase.recurringSubscriptionPeriod.value_or("")).value_or("subscription");
}

void addPurchases(AppReport& report, const std::vector<InAppPurchase>& purchases,
                  const LocaleFormats& formats) {
  report.purchaseCurrency = commonCurrency(purchases, report.currency.value_or(""));
  const bool eachSays = report.purchaseCurrency.empty();
  auto& rows = report.inAppPurchases.emplace();
  for (const InAppPurchase& purchase : purchases) {
    const std::string said = eachSays ? purchase.currency.value_or("") : "";
    rows.push_back({.name = purchase.name,
                    .price = purchase.price,
                    .priceText = purchase.price ? priceText(*purchase.price, said) : "",
                    .isSubscription = purchase.isSubscription,
                    .billing = billingOf(purchase),
                    .pricePerYear = pricePerYear(purchase),
                    .perYearText = perYearText(purchase, formats).value_or("")});
  }
}

void addPriceHistory(AppReport& report, const std::vector<RecordedPrice>& prices) {
  report.priceCurrency = commonCurrency(prices, report.currency.value_or(""));
  const bool eachSays = report.priceCurrency.empty();
  auto& rows = report.priceHistory.emplace();
  for (const RecordedPrice& point : prices) {
    const std::string said = eachSays ? point.currency.value_or("") : "";
    const std::string day = point.when ? formatDay(*point.when) : "";
    rows.push_back({point, day, priceText(point.amount, said)});
  }
}

std::optional<bool> sellsSubscription(const DescribedApp& app) {
  if (!app.purchases) return app.record.hasSubscription;
  return std::any_of(app.purchases->begin(), app.purchases->end(),
                     [](const InAppPurchase& purchase) { return purchase.isSubscription; });
}

void addRecord(AppReport& report, const ITunesApp& app) {
  report.trackId = app.trackId;
  report.name = app.trackName;
  report.developer = unlessEmpty(app.artistName);
  if (!report.developer) report.developer = unlessEmpty(app.sellerName);
  report.bundleId = app.bundleId;
  report.genre = app.primaryGenreName;
  report.version = app.version;
  report.releaseDate = app.releaseDate;
  report.sizeBytes = sizeInBytes(app);
  report.contentRating = app.contentAdvisoryRating;
  report.storeURL = app.trackViewUrl;
  report.rating = app.averageUserRating;
  report.ratingCount = app.userRatingCount;
  report.ratingHistogram = app.ratingHistogram;
  report.price = app.price;
  report.currency = unlessEmpty(app.currency);
  report.description = unlessEmpty(app.description);
}

}  // namespace

AppReport appReport(const AppKnowledge& known, const ReportOccasion& occasion,
                    const LocaleFormats& formats) {
  const ITunesApp& app = known.app.record;
  AppReport report;
  report.exported = occasion.now;
  report.exportedOn = formatDay(occasion.now + occasion.zone(occasion.now));
  report.storefront = known.storefront;
  addRecord(report, app);
  report.formattedPrice = displayPrice(app, formats);
  const auto releases = known.app.versions.value_or(std::vector<VersionEntry>());
  report.versionHistory = releases;
  report.lastUpdated = app.currentVersionReleaseDate;
  if (!report.lastUpdated) report.lastUpdated = lastRelease(releases, {});
  report.maintenance =
      maintenanceHealth(releases, app.currentVersionReleaseDate, occasion.thresholds, occasion.now);
  report.hasSubscription = sellsSubscription(known.app);
  if (known.app.purchases) {
    addPurchases(report, *known.app.purchases, formats);
  } else if (app.hasInAppPurchases == false) {
    report.inAppPurchases.emplace();
  }
  report.reviews = known.reviews;
  addPriceHistory(report, known.prices);
  report.overview = reportOverview(report, known.app, formats);
  return report;
}

}  // namespace quillet
