// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include "export/app_report_exporter.h"

namespace quillet {

inline Instant day(std::string_view text) {
  return parseInternetDate(std::string(text) + "T23:30:00Z").value();
}

/// An app of which everything is known.
inline AppKnowledge knownApp() {
  ITunesApp app{.trackId = 1100000001, .trackName = "Fernwick"};
  app.bundleId = "com.example.fernwick";
  app.artistName = "Otter & Sons";
  app.kind = "mac-software";
  app.price = 9.99;
  app.formattedPrice = "$9.99";
  app.currency = "USD";
  app.version = "2.1";
  app.releaseDate = day("2024-02-29");
  app.currentVersionReleaseDate = day("2026-11-02");
  app.description = "Notes that grow.\n\n- Folders & tags\n- Search";
  app.primaryGenreName = "Productivity";
  app.minimumOsVersion = "13.0";
  app.fileSizeBytes = "12345678";
  app.contentAdvisoryRating = "4+";
  app.trackViewUrl = "https://apps.example/app/id1100000001?mt=12&l=en";
  app.languageCodesISO2A = {"DE", "EN"};
  AppEnrichment catalog;
  catalog.versions = {{"2.1", day("2026-11-02"), "Faster <search>."},
                      {"2.0", day("2026-03-01"), std::nullopt}};
  catalog.rating = {4.25, 1234, {34, 50, 100, 250, 800}};
  catalog.inAppPurchases = {{.productId = "a",
                             .name = "Pro",
                             .isSubscription = true,
                             .price = 4.99,
                             .currency = "USD",
                             .recurringSubscriptionPeriod = "P1M"},
                            {.productId = "b", .name = "Starter", .price = 0, .currency = "USD"}};
  AppKnowledge known{.app = describeApp(app, Platform::mac, catalog), .storefront = "us"};
  known.reviews = {{.title = "Good",
                    .body = "Fast & small.\nI like it.",
                    .rating = 4,
                    .userName = "Ada",
                    .date = day("2026-10-01"),
                    .isEdited = true,
                    .developerResponse = "Thanks!\n\nMore soon.",
                    .developerResponseDate = day("2026-10-03")},
                   {.title = "Hm", .body = "Not for me.", .rating = 2}};
  known.prices = {{day("2026-01-05"), 12.99, "USD"}, {day("2026-06-01"), 9.99, "USD"}};
  return known;
}

/// One and a half hours ahead of UTC, so that the user's day is the next one already.
inline AppReport reportOf(const AppKnowledge& known) {
  const auto zone = [](Instant) { return std::chrono::seconds(5400); };
  return appReport(known, {.now = day("2026-11-20"), .zone = zone}, LocaleFormats(UserLocale{}));
}

inline AppReportExporter exporterOf(const AppKnowledge& known) {
  return AppReportExporter(reportOf(known));
}

}  // namespace quillet
