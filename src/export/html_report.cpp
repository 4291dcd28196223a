// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "export/html_report.h"

#include <fmt/format.h>

#include "export/html_text.h"
#include "export/report_wording.h"

namespace quillet {

namespace {

constexpr std::string_view kStyle =
    R"(body { font: 13px -apple-system, BlinkMacSystemFont, "Helvetica Neue", sans-serif; color: #1d1d1f; max-width: 780px; margin: 32px auto; padding: 0 24px; line-height: 1.5; }
h1 { font-size: 26px; margin-bottom: 2px; }
h2 { font-size: 17px; margin-top: 28px; border-bottom: 1px solid #e5e5e7; padding-bottom: 5px; }
h3 { font-size: 14px; margin-bottom: 2px; }
.seller { color: #6e6e73; margin-top: 0; }
.price { font-weight: 600; }
table { border-collapse: collapse; width: 100%; margin: 8px 0; }
th, td { text-align: left; padding: 5px 8px; border-bottom: 1px solid #ededf0; vertical-align: top; }
th { color: #6e6e73; font-weight: 500; width: 180px; }
.review { border-left: 3px solid #ededf0; padding-left: 12px; margin: 14px 0; }
.stars { color: #ff9500; margin-bottom: 2px; }
.meta { color: #6e6e73; font-size: 12px; }
blockquote { border-left: 3px solid #0071e3; margin: 8px 0; padding-left: 10px; color: #6e6e73; }
footer { margin-top: 32px; color: #86868b; font-size: 11px; }
)";

/// An element with text from outside, on a line of its own; nothing where the text is empty.
std::string paragraph(std::string_view cssClass, std::string_view text) {
  const std::string content = htmlInline(text);
  if (content.empty()) return {};
  return fmt::format("<p class=\"{}\">{}</p>\n", cssClass, content);
}

std::string heading(std::string_view text) { return fmt::format("<h2>{}</h2>\n", text); }

std::string row(std::string_view cellTag, std::initializer_list<std::string_view> texts) {
  std::string cells;
  for (const std::string_view text : texts) {
    cells += fmt::format("<{0}>{1}</{0}>", cellTag, htmlInline(text));
  }
  return fmt::format("<tr>{}</tr>\n", cells);
}

std::string table(std::string_view rows) { return fmt::format("<table>\n{}</table>\n", rows); }

std::string document(std::string_view title, std::string_view body) {
  return fmt::format(
      "<!DOCTYPE html>\n<html lang=\"en\">\n<head>\n<meta charset=\"utf-8\">\n"
      "<title>{}</title>\n<style>\n{}</style>\n</head>\n<body>\n{}</body>\n</html>\n",
      title, kStyle, body);
}

std::string headOf(const AppReport& report) {
  std::string html = fmt::format("<h1>{}</h1>\n", htmlInline(report.name));
  if (report.developer) html += paragraph("seller", "by " + *report.developer);
  html += paragraph("price", report.formattedPrice);
  return html + paragraph("meta", storefrontText(report));
}

std::string overviewOf(const AppReport& report) {
  std::string rows;
  for (const ReportFact& fact : report.overview) {
    const bool link = fact.kind == ReportFact::Kind::link;
    rows += fmt::format("<tr><th>{}</th><td>{}</td></tr>\n", htmlInline(fact.label),
                        link ? htmlLink(fact.text) : htmlInline(fact.text));
  }
  return heading("Overview") + table(rows);
}

std::string descriptionOf(const AppReport& report) {
  if (!report.description) return {};
  return heading("Description") + htmlParagraphs(*report.description);
}

std::string purchasesOf(const AppReport& report) {
  if (!report.inAppPurchases) return {};
  const std::string title = heading("In-App Purchases");
  if (report.inAppPurchases->empty()) return fmt::format("{}<p>{}</p>\n", title, kNoPurchases);
  std::string rows = row("th", {"Item", "Price", "Billing", "Per year"});
  for (const ReportPurchase& purchase : *report.inAppPurchases) {
    rows += row("td", {purchase.name, purchase.priceText, purchase.billing, purchase.perYearText});
  }
  return title + paragraph("meta", currencyNote(report.purchaseCurrency)) + table(rows);
}

std::string versionsOf(const AppReport& report) {
  if (!report.versionHistory || report.versionHistory->empty()) return {};
  std::string html = heading("Version History");
  html += paragraph("meta", maintenanceSummary(report.maintenance) + '.');
  for (const VersionEntry& entry : *report.versionHistory) {
    html += fmt::format("<h3>{}</h3>\n{}", htmlInline(releaseTitle(entry)),
                        htmlParagraphs(entry.releaseNotes.value_or("")));
  }
  return html;
}

std::string responseOf(const AppReview& review) {
  if (review.developerResponse.value_or("").empty()) return {};
  const auto& date = review.developerResponseDate;
  return fmt::format("<blockquote><strong>Developer response:</strong> {}\n{}</blockquote>\n",
                     htmlLines(*review.developerResponse),
                     paragraph("meta", date ? formatDay(*date) : ""));
}

std::string reviewOf(const AppReview& review) {
  std::string html = "<div class=\"review\">\n" + paragraph("stars", starsText(review));
  const std::string title = htmlInline(review.title);
  if (!title.empty()) html += fmt::format("<h3>{}</h3>\n", title);
  html += paragraph("meta", bylineText(review));
  html += htmlParagraphs(review.body);
  return html + responseOf(review) + "</div>\n";
}

std::string reviewsOf(const AppReport& report) {
  if (!report.reviews || report.reviews->empty()) return {};
  std::string html = heading("Reviews");
  for (const AppReview& review : *report.reviews) html += reviewOf(review);
  return html;
}

std::string priceHistoryOf(const AppReport& report) {
  if (!report.priceHistory || report.priceHistory->empty()) return {};
  std::string rows = row("th", {"Date", "Price"});
  for (const ReportPrice& price : *report.priceHistory) {
    rows += row("td", {price.day, price.text});
  }
  return heading("Price History") + paragraph("meta", currencyNote(report.priceCurrency)) +
         table(rows);
}

}  // namespace

std::string htmlReport(const AppReport& report) {
  std::string body = headOf(report);
  body += overviewOf(report);
  body += descriptionOf(report);
  body += purchasesOf(report);
  body += versionsOf(report);
  body += reviewsOf(report);
  body += priceHistoryOf(report);
  body += fmt::format("<footer>Exported from Quillbase on {}</footer>\n", report.exportedOn);
  return document(htmlInline(report.name) + " — Quillbase report", body);
}

}  // namespace quillet
