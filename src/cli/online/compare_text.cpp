// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "cli/online/compare_text.h"

#include <fmt/format.h>

#include <algorithm>

#include "base/columns.h"
#include "base/text.h"
#include "cli/online/prices/price_text.h"
#include "cli/page.h"
#include "cli/rating_text.h"

namespace quillet {

namespace {

using Entry = CLIComparison::Entry;

constexpr std::size_t kMostPurchases = 10;
constexpr std::size_t kGap = 2;
// A subscription's cost in a year stands in one line of this width.
constexpr std::size_t kNarrowestColumn = 26;
constexpr std::size_t kWidestColumn = 40;

/// What is said of an app under one heading.
struct Aspect {
  std::string_view label;
  std::vector<std::string> lines;
  Ink ink = Ink::plain;
};

std::string yearText(double amount, const std::optional<std::string>& currency,
                     const LocaleFormats& formats) {
  return printable(formats.currency(amount, currency.value_or(""))) + "/year";
}

/// "Subscription $59.88/year", "One-time $99.00".
std::string costText(const CLIPurchase& purchase, const LocaleFormats& formats) {
  std::string text = purchase.subscription ? "Subscription" : "One-time";
  if (purchase.pricePerYear) {
    return text + ' ' + yearText(*purchase.pricePerYear, purchase.currency, formats);
  }
  const std::string price = shown(purchase.formattedPrice);
  return price.empty() ? text : text + ' ' + price;
}

std::string uncheckedText(PurchaseCheck check, const TextStyle& style) {
  return fmt::format("unknown {} {}", dash(style),
                     check == PurchaseCheck::rateLimited ? "Apple rate limited the purchase lookup"
                                                         : "the purchase lookup failed");
}

/// Two lines each: what it is, and below it, indented, what it costs.
std::vector<std::string> purchaseLines(const Entry& entry, const Page& page) {
  if (entry.check != PurchaseCheck::done) return {uncheckedText(entry.check, page.style())};
  if (entry.purchases.empty()) return {"none"};
  std::vector<std::string> lines;
  for (const CLIPurchase& each :
       std::span(entry.purchases).first(std::min(entry.purchases.size(), kMostPurchases))) {
    lines.push_back(printable(each.name));
    lines.push_back("  " + costText(each, page.formats()));
  }
  if (entry.purchases.size() > kMostPurchases) {
    lines.push_back(fmt::format("and {} more, in --json", entry.purchases.size() - kMostPurchases));
  }
  return lines;
}

std::vector<Aspect> aspectsOf(const Entry& entry, const Page& page) {
  const LocaleFormats& formats = page.formats();
  const CLIAppSummary& app = entry.app;
  const std::string unknown(dash(page.style()));
  const std::string price =
      app.free == true ? "Free" : printable(app.formattedPrice.value_or(unknown));
  const std::string firstYear =
      entry.firstYearCost ? priceText(*entry.firstYearCost, app.currency, formats) : "unknown";
  return {{"Price", {price}, Ink::green},
          {"Rating",
           {ratingText(app.rating, app.ratingCount, RatingPlace::line, formats, page.style())},
           Ink::yellow},
          {"Purchases", purchaseLines(entry, page)},
          {"First year", {firstYear}, Ink::green}};
}

/// How wide each app's column may be; 0 where not all apps fit beside each other.
std::size_t columnWidth(std::size_t apps, const TextStyle& style) {
  const std::size_t taken = kPageLabelWidth + (apps - 1) * kGap;
  if (style.width < taken + apps * kNarrowestColumn) return 0;
  return std::min((style.width - taken) / apps, kWidestColumn);
}

/// Lines no wider than a column; what is indented stays so.
std::vector<std::string> fitted(const std::vector<std::string>& lines, std::size_t width,
                                const TextStyle& style) {
  std::vector<std::string> result;
  for (const std::string& line : lines) {
    if (line.starts_with(' ') || columnCount(line) <= width) {
      result.push_back(shortened(line, width, style));
      continue;
    }
    for (std::string& piece : wrapped(line, width))
      result.push_back(shortened(piece, width, style));
  }
  return result;
}

/// The cells of one row of the table, beside its label.
void addLine(Page& page, std::string_view label, const std::vector<std::string>& cells,
             std::size_t width, Ink ink) {
  std::string line = inked(column(label, kPageLabelWidth), Ink::dim, page.style());
  std::size_t blanks = 0;
  for (const std::string& cell : cells) {
    if (!cell.empty()) line += std::string(blanks, ' ') + inked(cell, ink, page.style());
    blanks = (cell.empty() ? blanks + width : width - columnCount(cell)) + kGap;
  }
  page.line(line);
}

void addTable(Page& page, const CLIComparison& comparison, std::size_t width) {
  std::vector<std::string> names;
  std::vector<std::vector<Aspect>> columns;
  for (const Entry& entry : comparison.entries) {
    names.push_back(shortened(printable(entry.app.name), width, page.style()));
    columns.push_back(aspectsOf(entry, page));
  }
  addLine(page, "", names, width, Ink::bold);
  for (std::size_t aspect = 0; aspect < columns.front().size(); ++aspect) {
    std::vector<std::vector<std::string>> cells;
    std::size_t height = 0;
    for (const auto& each : columns) {
      cells.push_back(fitted(each[aspect].lines, width, page.style()));
      height = std::max(height, cells.back().size());
    }
    for (std::size_t row = 0; row < height; ++row) {
      std::vector<std::string> line;
      for (const auto& each : cells) line.push_back(row < each.size() ? each[row] : "");
      addLine(page, row == 0 ? columns.front()[aspect].label : "", line, width,
              columns.front()[aspect].ink);
    }
  }
}

void addBlock(Page& page, const Entry& entry) {
  page.heading(printable(entry.app.name), shown(entry.app.seller));
  const std::size_t room = page.textWidth() - std::min(page.textWidth(), kPageLabelWidth);
  for (const Aspect& aspect : aspectsOf(entry, page)) {
    std::string_view label = aspect.label;
    for (const std::string& line :
         fitted(aspect.lines, std::max(room, kNarrowestColumn), page.style())) {
      addLine(page, label, {line}, columnCount(line), aspect.ink);
      label = "";
    }
  }
}

}  // namespace

std::string renderComparisonText(const CLIComparison& comparison, const LocaleFormats& formats,
                                 const TextStyle& style) {
  Page page(style, formats);
  const std::size_t count = comparison.entries.size();
  page.line(fmt::format("Comparing {} app{} in the {} storefront.", count, count == 1 ? "" : "s",
                        comparison.country));
  page.startBlock();
  if (const std::size_t width = columnWidth(count, style); width > 0) {
    addTable(page, comparison, width);
  } else {
    for (const Entry& entry : comparison.entries) {
      if (&entry != &comparison.entries.front()) page.startBlock();
      addBlock(page, entry);
    }
  }
  if (!comparison.missing.empty()) {
    page.startBlock();
    page.line(fmt::format("Not found in this storefront: {}", fmt::join(comparison.missing, ", ")));
  }
  return page.take();
}

}  // namespace quillet
