// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "export/comparison_report.h"

#include <fmt/format.h>

#include <span>

#include "base/text.h"
#include "base/urls.h"
#include "export/csv_text.h"
#include "export/html_text.h"
#include "export/markdown_text.h"
#include "export/running_text.h"

namespace quillet {

namespace {

using Cells = std::vector<std::string>;

template <typename Items, typename Write>
Cells cellsOf(std::string first, const Items& items, Write write) {
  Cells cells{std::move(first)};
  for (const auto& each : items) cells.push_back(write(each));
  return cells;
}

std::string markdownRow(const Cells& cells) { return fmt::format("| {} |\n", join(cells, " | ")); }

std::string markdownName(const ComparisonColumn& app) {
  const std::string name = markdownInline(app.name);
  return isWebAddress(app.link) ? fmt::format("[{}]({})", name, markdownLink(app.link)) : name;
}

std::string markdownOf(const ComparisonReport& report) {
  std::string text = fmt::format("# {}\n\n", markdownInline(report.title));
  text += markdownRow(cellsOf("", report.apps, markdownName));
  text += markdownRow(Cells(report.apps.size() + 1, "---"));
  for (const ComparisonRow& row : report.rows) {
    text +=
        markdownRow(cellsOf(markdownInline(row.label), row.cells,
                            [](const ComparisonCell& cell) { return markdownInline(cell.text); }));
  }
  for (const std::string& note : report.notes)
    text += fmt::format("\n{}\n", markdownParagraphs(note));
  return text;
}

constexpr std::string_view kStyle =
    R"(body { font: 13px -apple-system, BlinkMacSystemFont, "Helvetica Neue", sans-serif; color: #1d1d1f; margin: 32px auto; padding: 0 24px; max-width: 1120px; line-height: 1.5; }
h1 { font-size: 22px; }
table { border-collapse: collapse; width: 100%; }
th, td { text-align: left; padding: 8px 16px 8px 0; border-bottom: 1px solid #e6e8ed; vertical-align: top; }
tbody th { color: #565c67; font-weight: 400; white-space: nowrap; }
.seller { color: #565c67; font-weight: 400; }
)";

std::string htmlName(const ComparisonColumn& app) {
  std::string name = htmlInline(app.name);
  if (isWebAddress(app.link))
    name = fmt::format("<a href=\"{}\">{}</a>", htmlInline(app.link), name);
  if (app.seller.empty()) return name;
  return name + fmt::format("<br><span class=\"seller\">{}</span>", htmlInline(app.seller));
}

std::string htmlRow(const Cells& cells, std::string_view tag) {
  std::string text = fmt::format("<tr><th>{}</th>", cells.front());
  for (const std::string& cell : std::span(cells).subspan(1))
    text += fmt::format("<{0} dir=\"auto\">{1}</{0}>", tag, cell);
  return text + "</tr>\n";
}

std::string htmlOf(const ComparisonReport& report) {
  const std::string title = htmlInline(report.title);
  std::string text = fmt::format(
      "<!DOCTYPE html>\n<html lang=\"en\">\n<head>\n<meta charset=\"utf-8\">\n"
      "<title>{0}</title>\n<style>\n{1}</style>\n</head>\n<body>\n<h1>{0}</h1>\n",
      title, kStyle);
  text += "<table>\n<thead>\n" + htmlRow(cellsOf("", report.apps, htmlName), "th");
  text += "</thead>\n<tbody>\n";
  for (const ComparisonRow& row : report.rows) {
    text += htmlRow(cellsOf(htmlInline(row.label), row.cells,
                            [](const ComparisonCell& cell) { return htmlInline(cell.text); }),
                    "td");
  }
  text += "</tbody>\n</table>\n";
  for (const std::string& note : report.notes) text += htmlParagraphs(note);
  return text + "</body>\n</html>\n";
}

/// Amounts are numbers, which do not say what they are of.
std::string csvOf(const ComparisonReport& report) {
  const auto column = [&](std::string label, std::string ComparisonColumn::* part) {
    return csvRow(cellsOf(std::move(label), report.apps,
                          [part](const ComparisonColumn& app) { return app.*part; }));
  };
  std::string text = column("App", &ComparisonColumn::name);
  text += column("Seller", &ComparisonColumn::seller);
  text += column("Link", &ComparisonColumn::link);
  text += column("Currency", &ComparisonColumn::currency);
  for (const ComparisonRow& row : report.rows) {
    text += csvRow(cellsOf(row.label, row.cells, [](const ComparisonCell& cell) {
      return cell.plain.value_or(cell.text);
    }));
  }
  return text;
}

}  // namespace

std::string comparisonText(const ComparisonReport& report, ComparisonFormat format) {
  switch (format) {
    case ComparisonFormat::markdown: return markdownOf(report);
    case ComparisonFormat::html: return htmlOf(report);
    case ComparisonFormat::csv: break;
  }
  return csvOf(report);
}

}  // namespace quillet
