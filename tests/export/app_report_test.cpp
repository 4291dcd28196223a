// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include <gtest/gtest.h>

#include "base/errors.h"
#include "export/html_report.h"
#include "export/json_report.h"
#include "export/known_app.h"
#include "export/markdown_report.h"
#include "export/report_parts.h"
#include "support/place.h"
#include "support/temporary_folder.h"

namespace quillet {
namespace {

TEST(AppReport, HoldsEverythingKnown) {
  const TemporaryFolder own;
  const std::filesystem::path& folder = own.path();
  const AppReportExporter exporter = exporterOf(knownApp());
  const std::pair<const char*, ReportFormat> files[] = {{"report.md", ReportFormat::markdown},
                                                        {"report.html", ReportFormat::html},
                                                        {"report.json", ReportFormat::json}};
  for (const auto& [name, format] : files) {
    exporter.write(folder / name, format);
    EXPECT_EQ(contentOf(folder / name), contentOf(placeOf(QUILLET_EXPECTED_REPORTS) + '/' + name));
  }
  EXPECT_THROW(exporter.write(folder / "no" / "a.md", ReportFormat::markdown), FileError);
}

using Parts = std::vector<const char*>;

void expectParts(const AppKnowledge& known, ReportFormat format, const Parts& present,
                 const Parts& absent = {}) {
  const std::string text = exporterOf(known).text(format);
  for (const char* part : present) EXPECT_NE(text.find(part), std::string::npos) << part;
  for (const char* part : absent) EXPECT_EQ(text.find(part), std::string::npos) << part;
}

TEST(AppReport, SaysThatThereAreNoPurchasesWhereThatIsKnown) {
  using enum ReportFormat;
  AppKnowledge known = knownApp();
  known.app.purchases.emplace();
  expectParts(
      known, markdown,
      {"## In-App Purchases\n\nNo in-app purchases\n\n## Version", "| In-app purchases | No |"},
      {"| Item |"});
  expectParts(known, html, {"<h2>In-App Purchases</h2>\n<p>No in-app purchases</p>\n<h2>"},
              {"<th>Item</th>"});
  expectParts(known, json, {R"("inAppPurchases": [])", R"("hasSubscription": false)"});
  known.app.purchases.reset();
  known.app.record.hasInAppPurchases.reset();
  known.app.record.hasSubscription.reset();
  expectParts(known, markdown, {}, {"In-App Purchases", "In-app purchases", "No in-app purchases"});
  known.app.record.hasInAppPurchases = false;
  expectParts(known, markdown, {"No in-app purchases", "| In-app purchases | No |"});
}

TEST(AppReport, SaysNothingOfPartsThatNobodyWants) {
  const std::pair<ReportPart, const char*> parts[] = {{ReportPart::description, "description"},
                                                      {ReportPart::purchases, "inAppPurchases"},
                                                      {ReportPart::versions, "versionHistory"},
                                                      {ReportPart::reviews, "reviews"},
                                                      {ReportPart::prices, "priceHistory"}};
  const AppReport whole = reportOf(knownApp());
  for (const auto& [part, key] : parts) {
    const AppReport report = withoutParts(whole, {part});
    const std::string quoted = '"' + std::string(key) + "\": ";
    EXPECT_NE(jsonReport(whole).find(quoted), std::string::npos) << key;
    EXPECT_EQ(jsonReport(report).find(quoted), std::string::npos) << key;
    EXPECT_LT(markdownReport(report).size(), markdownReport(whole).size()) << key;
    EXPECT_LT(htmlReport(report).size(), htmlReport(whole).size()) << key;
  }
}

TEST(AppReport, TellsEachPurchasesCurrencyWhereTheyDiffer) {
  AppKnowledge known = knownApp();
  known.app.purchases->at(0).currency = "EUR";
  known.app.purchases->at(1).price.reset();
  expectParts(known, ReportFormat::markdown,
              {"## In-App Purchases\n\n| Item", "| Pro | 4.99 EUR | per month | €59.88/year |",
               "| Starter |  | one-time |  |"});
}

TEST(AppReport, LeavesOutWhatIsNotKnown) {
  AppKnowledge known = knownApp();
  known.reviews[0].developerResponse.reset();
  expectParts(known, ReportFormat::html, {"<h3>Good</h3>"}, {"<blockquote>", "Developer response"});
  known = {.app = describeApp({.trackId = 7, .trackName = "Bare"}), .storefront = "de"};
  expectParts(known, ReportFormat::html, {"<th>Maintenance</th><td>Unknown</td>"},
              {"Version History", "<h2>Reviews", "Price History", "<th>Rating"});
  expectParts(known, ReportFormat::markdown,
              {"# Bare\n\nFree · DE storefront\n\n## Overview\n\n| Fact | Value |\n| --- | --- |\n"
               "| Maintenance | Unknown |\n\n*Exported"});
}

TEST(AppReport, ReadsTheStoresZeroes) {
  AppKnowledge known = knownApp();
  known.prices[1].amount = 0;
  ITunesApp app = known.app.record;
  app.kind = "software";
  app.price = 0;
  app.formattedPrice.reset();
  app.averageUserRating = 0;
  app.userRatingCount = 0;
  known.app = describeApp(app);
  known.app.versions = {{"1.0", day("2026-03-01"), std::nullopt}};
  expectParts(known, ReportFormat::markdown,
              {"\n\nFree · US storefront\n\n", "| 2026-06-01 | Free |",
               "| Rating | No ratings yet |", "| Minimum system | iOS 13.0 or later |",
               "| Maintenance | Slowing down |", "Last updated 8 months ago."});
}

TEST(AppReport, LinksToNothingButWebAddresses) {
  AppKnowledge known = knownApp();
  known.app.record.trackViewUrl = "javascript:alert(1)";
  expectParts(known, ReportFormat::html, {"<td>javascript:alert(1)</td>"}, {"<a "});
}

}  // namespace
}  // namespace quillet
