// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include <gtest/gtest.h>

#include "base/errors.h"
#include "export/report_file.h"

namespace quillet {
namespace {

TEST_F(ReportFile, HoldsEverythingKnown) {
  const std::pair<const char*, ReportFormat> files[] = {{"report.md", ReportFormat::markdown},
                                                        {"report.html", ReportFormat::html},
                                                        {"report.json", ReportFormat::json}};
  for (const auto& [name, format] : files) {
    exporterOf(knownApp()).write(folder / name, format);
    EXPECT_EQ(contentOf(folder / name),
              contentOf(std::filesystem::path(QUILLET_EXPECTED_REPORTS) / name));
  }
}

TEST_F(ReportFile, SaysWhereItCannotBeWritten) {
  EXPECT_THROW(exporterOf(knownApp()).write(folder / "no" / "a.md", ReportFormat::markdown),
               FileError);
}

struct Edge {
  const char* situation;
  void (*change)(AppKnowledge&);
  ReportFormat format;
  std::vector<const char*> present;
  std::vector<const char*> absent;
};

const Edge kEdges[] = {
    {"no purchases",
     [](AppKnowledge& known) { known.purchases.emplace(); },
     ReportFormat::markdown,
     {"## In-App Purchases\n\nNo in-app purchases\n\n## Version", "| In-app purchases | No |"},
     {"| Item |", "Prices in USD.\n\n| Item"}},
    {"no purchases",
     [](AppKnowledge& known) { known.purchases.emplace(); },
     ReportFormat::html,
     {"<h2>In-App Purchases</h2>\n<p>No in-app purchases</p>\n<h2>"},
     {"<th>Item</th>"}},
    {"no purchases",
     [](AppKnowledge& known) { known.purchases.emplace(); },
     ReportFormat::json,
     {"\"inAppPurchases\": []", "\"hasSubscription\": false"},
     {}},
    {"purchases not known",
     [](AppKnowledge& known) { known.purchases.reset(); },
     ReportFormat::markdown,
     {},
     {"In-App Purchases", "In-app purchases", "No in-app purchases"}},
    {"no purchases by the record alone",
     [](AppKnowledge& known) {
       known.purchases.reset();
       known.app.hasInAppPurchases = false;
     },
     ReportFormat::markdown,
     {"No in-app purchases", "| In-app purchases | No |"},
     {}},
    {"purchases of another currency and without a price",
     [](AppKnowledge& known) {
       known.purchases->at(0).currency = "EUR";
       known.purchases->at(1).price.reset();
     },
     ReportFormat::markdown,
     {"## In-App Purchases\n\n| Item", "| Pro | 4.99 EUR | per month | €59.88/year |",
      "| Starter |  | one-time |  |"},
     {}},
    {"no reply to a review",
     [](AppKnowledge& known) { known.reviews[0].developerResponse.reset(); },
     ReportFormat::html,
     {"<h3>Good</h3>"},
     {"<blockquote>", "Developer response"}},
    {"no versions, reviews, prices",
     [](AppKnowledge& known) {
       known.enrichment.reset();
       known.reviews.clear();
       known.prices.clear();
     },
     ReportFormat::html,
     {"<th>Maintenance</th><td>Actively updated</td>"},
     {"Version History", "<h2>Reviews", "Price History", "<th>Rating"}},
    {"nothing but a name",
     [](AppKnowledge& known) {
       known = {.app = {.trackId = 7, .trackName = "Bare"}, .storefront = "de"};
     },
     ReportFormat::markdown,
     {"# Bare\n\nDE storefront\n\n## Overview\n\n| Fact | Value |\n| --- | --- |\n"
      "| Maintenance | Unknown |\n\n*Exported"},
     {"Free", "by "}},
    {"a free app",
     [](AppKnowledge& known) {
       known.app.price = 0;
       known.app.formattedPrice.reset();
       known.prices[1].price = 0;
     },
     ReportFormat::markdown,
     {"\n\nFree · US storefront\n\n", "| 2026-06-01 | Free |"},
     {}},
    {"a phone app that nobody has rated, slow",
     [](AppKnowledge& known) {
       known.app.kind = "software";
       known.app.averageUserRating = 0;
       known.app.userRatingCount = 0;
       known.enrichment->versions = {{"1.0", day("2026-03-01"), std::nullopt}};
     },
     ReportFormat::markdown,
     {"| Rating | No ratings yet |", "| Minimum system | iOS 13.0 or later |",
      "| Maintenance | Slowing down |", "Last updated 8 months ago."},
     {}},
    {"a link that is none",
     [](AppKnowledge& known) { known.app.trackViewUrl = "javascript:alert(1)"; },
     ReportFormat::html,
     {"<td>javascript:alert(1)</td>"},
     {"<a "}},
};

TEST(AppReport, Edges) {
  for (const Edge& edge : kEdges) {
    AppKnowledge known = knownApp();
    edge.change(known);
    const std::string text = exporterOf(known).text(edge.format);
    for (const char* part : edge.present) {
      EXPECT_NE(text.find(part), std::string::npos) << edge.situation << ": " << part;
    }
    for (const char* part : edge.absent) {
      EXPECT_EQ(text.find(part), std::string::npos) << edge.situation << ": " << part;
    }
  }
}

}  // namespace
}  // namespace quillet
