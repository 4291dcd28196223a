// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "export/markdown_report.h"

#include <fmt/format.h>

#include "base/text.h"
#include "export/markdown_text.h"
#include "export/report_wording.h"

namespace quillet {

namespace {

/// A document as it grows: blocks with an empty line between them.
class Blocks {
 public:
  /// Nothing where the text is empty.
  void add(std::string_view text) {
    if (text.empty()) return;
    if (!text_.empty()) text_ += '\n';
    text_.append(text).append("\n");
  }
  void addRunningText(std::string_view text) { add(markdownParagraphs(text)); }
  std::string take() { return std::move(text_); }

 private:
  std::string text_;
};

/// A table's row of cells that are Markdown already.
std::string row(const std::vector<std::string>& cells) {
  return fmt::format("| {} |", join(cells, " | "));
}

std::string table(const std::vector<std::string>& heading,
                  const std::vector<std::vector<std::string>>& rows) {
  std::string text = row(heading);
  text += '\n' + row(std::vector<std::string>(heading.size(), "---"));
  for (const auto& cells : rows) text += '\n' + row(cells);
  return text;
}

void addHead(Blocks& blocks, const AppReport& report) {
  blocks.add("# " + markdownInline(report.name));
  if (report.developer) blocks.add(fmt::format("*by {}*", markdownInline(*report.developer)));
  blocks.addRunningText(report.formattedPrice + " · " + storefrontText(report));
}

void addOverview(Blocks& blocks, const AppReport& report) {
  std::vector<std::vector<std::string>> rows;
  for (const ReportFact& fact : report.overview) {
    const bool link = fact.kind == ReportFact::Kind::link;
    rows.push_back({fact.label, link ? markdownLink(fact.text) : markdownInline(fact.text)});
  }
  blocks.add("## Overview");
  blocks.add(table({"Fact", "Value"}, rows));
}

void addDescription(Blocks& blocks, const AppReport& report) {
  if (!report.description) return;
  blocks.add("## Description");
  blocks.addRunningText(*report.description);
}

void addPurchases(Blocks& blocks, const AppReport& report) {
  if (!report.inAppPurchases) return;
  blocks.add("## In-App Purchases");
  if (report.inAppPurchases->empty()) return blocks.add(kNoPurchases);
  blocks.addRunningText(currencyNote(report.purchaseCurrency));
  std::vector<std::vector<std::string>> rows;
  for (const ReportPurchase& purchase : *report.inAppPurchases) {
    rows.push_back({markdownInline(purchase.name), markdownInline(purchase.priceText),
                    purchase.billing, markdownInline(purchase.perYearText)});
  }
  blocks.add(table({"Item", "Price", "Billing", "Per year"}, rows));
}

void addVersions(Blocks& blocks, const AppReport& report) {
  if (!report.versionHistory || report.versionHistory->empty()) return;
  blocks.add("## Version History");
  blocks.addRunningText(maintenanceSummary(report.maintenance) + '.');
  for (const VersionEntry& entry : *report.versionHistory) {
    blocks.add("### " + markdownInline(releaseTitle(entry)));
    blocks.addRunningText(entry.releaseNotes.value_or(""));
  }
}

/// Every line of a block, set in as a quotation.
std::string asQuotation(std::string_view block) {
  std::string text;
  for (const std::string_view line : split(block, '\n')) {
    text += text.empty() ? ">" : "\n>";
    if (!line.empty()) text.append(" ").append(line);
  }
  return text;
}

void addResponse(Blocks& blocks, const AppReview& review) {
  if (review.developerResponse.value_or("").empty()) return;
  std::string heading = "**Developer response:**";
  if (review.developerResponseDate) heading += ' ' + formatDay(*review.developerResponseDate);
  blocks.add(asQuotation(heading + "\n\n" + markdownParagraphs(*review.developerResponse)));
}

void addReview(Blocks& blocks, const AppReview& review) {
  const std::string title = markdownInline(review.title);
  blocks.add("### " + (title.empty() ? "Untitled" : title));
  const std::string stars = starsText(review);
  const std::string byline = bylineText(review);
  blocks.addRunningText(stars + (stars.empty() || byline.empty() ? "" : " · ") + byline);
  blocks.addRunningText(review.body);
  addResponse(blocks, review);
}

void addReviews(Blocks& blocks, const AppReport& report) {
  if (!report.reviews || report.reviews->empty()) return;
  blocks.add("## Reviews");
  for (const AppReview& review : *report.reviews) addReview(blocks, review);
}

void addPriceHistory(Blocks& blocks, const AppReport& report) {
  if (!report.priceHistory || report.priceHistory->empty()) return;
  blocks.add("## Price History");
  blocks.addRunningText(currencyNote(report.priceCurrency));
  std::vector<std::vector<std::string>> rows;
  for (const ReportPrice& price : *report.priceHistory) {
    rows.push_back({price.day, markdownInline(price.text)});
  }
  blocks.add(table({"Date", "Price"}, rows));
}

}  // namespace

std::string markdownReport(const AppReport& report) {
  Blocks blocks;
  addHead(blocks, report);
  addOverview(blocks, report);
  addDescription(blocks, report);
  addPurchases(blocks, report);
  addVersions(blocks, report);
  addReviews(blocks, report);
  addPriceHistory(blocks, report);
  blocks.add(fmt::format("*Exported from Quillet on {}*", report.exportedOn));
  return blocks.take();
}

}  // namespace quillet
