// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "cli/online/compare/compare_text.h"

#include <fmt/format.h>

#include <algorithm>

#include "base/columns.h"
#include "base/text.h"
#include "cli/online/prices/price_text.h"
#include "cli/page.h"
#include "cli/rating_text.h"
#include "cli/text_table.h"
#include "store/records/display_price.h"

namespace quillet {

namespace {

using Entry = CLIComparison::Entry;

constexpr std::size_t kMostPurchases = 10;
constexpr std::size_t kGap = 2;
// A subscription's cost in a year stands in one line of this width.
constexpr std::size_t kNarrowestColumn = 26;
constexpr std::size_t kWidestColumn = 40;
// Two apps are taken in at a glance.
constexpr std::size_t kFewestToOverview = 3;
// What the columns take beside ratings, and a name that can be recognised.
constexpr std::size_t kRoomForRatings = 80;

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

/// "$4.99 per month"; empty where the cost per year says it already, or nothing says it.
std::string billedText(const CLIPurchase& purchase, const LocaleFormats& formats) {
  if (!purchase.price || !purchase.period) return {};
  const std::string price = formats.currency(*purchase.price, purchase.currency.value_or(""));
  const std::string perYear =
      formats.currency(*purchase.pricePerYear, purchase.currency.value_or(""));
  return price == perYear ? std::string() : printable(price + ' ' + *purchase.period);
}

/// What a line may be broken between: "Subscription", "$4.99 per month,", "$59.88/year".
std::vector<std::string> costPhrases(const CLIPurchase& purchase, const LocaleFormats& formats) {
  std::vector<std::string> phrases{purchase.subscription ? "Subscription" : "One-time"};
  if (purchase.pricePerYear) {
    const std::string billed = billedText(purchase, formats);
    if (!billed.empty()) phrases.push_back(billed + ',');
    phrases.push_back(yearText(*purchase.pricePerYear, purchase.currency, formats));
  } else if (std::string price =
                 amountText(purchase.price, purchase.currency, purchase.formattedPrice, formats);
             !price.empty()) {
    phrases.push_back(std::move(price));
  }
  return phrases;
}

/// Indented lines, no wider than `width` unless one phrase alone is.
std::vector<std::string> costLines(const std::vector<std::string>& phrases, std::size_t width) {
  std::vector<std::string> lines;
  for (const std::string& phrase : phrases) {
    if (!lines.empty() && columnCount(lines.back()) + 1 + columnCount(phrase) <= width) {
      lines.back() += ' ' + phrase;
    } else {
      lines.push_back("  " + phrase);
    }
  }
  return lines;
}

std::string uncheckedText(PurchaseCheck check, const TextStyle& style) {
  return fmt::format("unknown {} {}", dash(style),
                     check == PurchaseCheck::rateLimited ? "Apple rate limited the purchase lookup"
                                                         : "the purchase lookup failed");
}

/// Of each, what it is, and below it, indented, what it costs.
std::vector<std::string> purchaseLines(const Entry& entry, const Page& page, std::size_t width) {
  if (entry.check != PurchaseCheck::done) return {uncheckedText(entry.check, page.style())};
  if (entry.purchases.empty()) return {"none"};
  std::vector<std::string> lines;
  for (const CLIPurchase& each :
       std::span(entry.purchases).first(std::min(entry.purchases.size(), kMostPurchases))) {
    lines.push_back(printable(each.name));
    for (std::string& line : costLines(costPhrases(each, page.formats()), width)) {
      lines.push_back(std::move(line));
    }
  }
  if (entry.purchases.size() > kMostPurchases) {
    lines.push_back(fmt::format("and {} more, in --json", entry.purchases.size() - kMostPurchases));
  }
  return lines;
}

std::string appPriceText(const Entry& entry, const Page& page) {
  const CLIAppSummary& app = entry.app;
  if (app.free == true) return std::string(kFreeText);
  const std::string text = amountText(app.price, app.currency, app.formattedPrice, page.formats());
  return text.empty() ? std::string(dash(page.style())) : text;
}

std::string firstYearText(const Entry& entry, const LocaleFormats& formats) {
  if (!entry.firstYearCost) return "unknown";
  return priceText(*entry.firstYearCost, entry.app.currency, formats);
}

std::string appRatingText(const Entry& entry, RatingPlace place, const Page& page) {
  return ratingText(entry.app.rating, entry.app.ratingCount, place, page.formats(), page.style());
}

/// What is left to say of each app behind the table of all.
struct Layout {
  bool overview = false;  ///< whether that table stands above
  bool ratings = false;   ///< whether it has room for ratings
};

Layout layoutOf(const CLIComparison& comparison, const TextStyle& style) {
  return {comparison.entries.size() >= kFewestToOverview,
          style.width == 0 || style.width >= kRoomForRatings};
}

/// `width`: of the lines that say what is sold.
std::vector<Aspect> aspectsOf(const Entry& entry, const Page& page, std::size_t width) {
  return {{"Price", {appPriceText(entry, page)}, Ink::green},
          {"Rating", {appRatingText(entry, RatingPlace::line, page)}, Ink::yellow},
          {"Purchases", purchaseLines(entry, page, width)},
          {"First year", {firstYearText(entry, page.formats())}, Ink::green}};
}

/// Those that the overview leaves out.
std::vector<Aspect> aspectsBelow(const Layout& layout, const Entry& entry, const Page& page,
                                 std::size_t width) {
  std::vector<Aspect> aspects = aspectsOf(entry, page, width);
  if (!layout.overview) return aspects;
  std::erase_if(aspects, [&](const Aspect& aspect) {
    return aspect.label != "Purchases" && (layout.ratings || aspect.label != "Rating");
  });
  return aspects;
}

const std::vector<TableColumn>& wideColumns() {
  static const std::vector<TableColumn> kColumns{
      {.heading = "App", .ink = Ink::bold, .smallest = 12},
      {.heading = "Price", .align = Align::right, .ink = Ink::green},
      {.heading = "Rating", .ink = Ink::yellow, .leavesAs = 1},
      {.heading = "Cheapest year", .align = Align::right},
      {.heading = "First year", .align = Align::right, .ink = Ink::green},
  };
  return kColumns;
}

const std::vector<TableColumn>& narrowColumns() {
  static const std::vector<TableColumn> kColumns{
      {.heading = "App", .ink = Ink::bold, .smallest = 6},
      {.heading = "Price", .align = Align::right, .ink = Ink::green, .leavesAs = 2},
      {.heading = "Per year", .align = Align::right, .leavesAs = 1},
      {.heading = "First year", .align = Align::right, .ink = Ink::green},
  };
  return kColumns;
}

std::string cheapestYearText(const Entry& entry, const Page& page) {
  if (entry.check != PurchaseCheck::done) return "unknown";
  if (!entry.subscription.sold) return std::string(dash(page.style()));
  if (!entry.subscription.cheapestPerYear) return "unknown";
  return printable(page.formats().currency(*entry.subscription.cheapestPerYear,
                                           entry.app.currency.value_or("")));
}

TableRow overviewRow(const Entry& entry, const Page& page, const Layout& layout) {
  TableRow row{printable(entry.app.name), appPriceText(entry, page)};
  if (layout.ratings) row.push_back(appRatingText(entry, RatingPlace::table, page));
  row.push_back(cheapestYearText(entry, page));
  row.push_back(firstYearText(entry, page.formats()));
  return row;
}

/// One line an app.
void addOverview(Page& page, const CLIComparison& comparison, const Layout& layout) {
  const std::vector<TableColumn>& columns = layout.ratings ? wideColumns() : narrowColumns();
  std::vector<TableRow> rows;
  // Without a width a table has no headings, but amounts are not told apart without them.
  if (page.style().width == 0) {
    for (TableRow& headings = rows.emplace_back(); const TableColumn& column : columns) {
      headings.emplace_back(column.heading);
    }
  }
  for (const Entry& entry : comparison.entries) rows.push_back(overviewRow(entry, page, layout));
  page.lines(renderTable(columns, rows, page.style()));
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

void addColumns(Page& page, const CLIComparison& comparison, const Layout& layout,
                std::size_t width) {
  std::vector<std::string> names;
  std::vector<std::vector<Aspect>> columns;
  for (const Entry& entry : comparison.entries) {
    names.push_back(shortened(printable(entry.app.name), width, page.style()));
    columns.push_back(aspectsBelow(layout, entry, page, width));
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

void addBlock(Page& page, const Entry& entry, const Layout& layout) {
  page.heading(printable(entry.app.name), shown(entry.app.seller));
  const std::size_t left = page.textWidth() - std::min(page.textWidth(), kPageLabelWidth);
  const std::size_t room = std::max(left, kNarrowestColumn);
  for (const Aspect& aspect : aspectsBelow(layout, entry, page, room)) {
    std::string_view label = aspect.label;
    for (const std::string& line : fitted(aspect.lines, room, page.style())) {
      addLine(page, label, {line}, columnCount(line), aspect.ink);
      label = "";
    }
  }
}

void addApps(Page& page, const CLIComparison& comparison, const Layout& layout) {
  const std::size_t width = columnWidth(comparison.entries.size(), page.style());
  if (width > 0) {
    addColumns(page, comparison, layout, width);
    return;
  }
  for (const Entry& entry : comparison.entries) {
    if (&entry != &comparison.entries.front()) page.startBlock();
    addBlock(page, entry, layout);
  }
}

}  // namespace

std::string renderComparisonText(const CLIComparison& comparison, const LocaleFormats& formats,
                                 const TextStyle& style) {
  Page page(style, formats);
  const Layout layout = layoutOf(comparison, style);
  const std::size_t count = comparison.entries.size();
  page.line(fmt::format("Comparing {} app{} in the {} storefront.", count, count == 1 ? "" : "s",
                        comparison.country));
  page.startBlock();
  if (layout.overview) {
    addOverview(page, comparison, layout);
    page.startBlock();
  }
  addApps(page, comparison, layout);
  if (!comparison.missing.empty()) {
    page.startBlock();
    page.line(fmt::format("Not found in this storefront: {}", fmt::join(comparison.missing, ", ")));
  }
  return page.take();
}

}  // namespace quillet
