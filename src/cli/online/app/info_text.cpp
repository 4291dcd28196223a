// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "cli/online/app/info_text.h"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>
#include <numeric>

#include "base/columns.h"
#include "base/text.h"
#include "cli/online/prices/price_text.h"
#include "cli/page.h"
#include "cli/rating_text.h"
#include "cli/text_table.h"
#include "store/records/display_price.h"

namespace quillet {

namespace {

constexpr std::size_t kLongestText = 12;  // lines
constexpr std::size_t kMostPurchases = 10;
constexpr std::size_t kMostVersions = 5;
constexpr std::size_t kLongestBar = 30;
constexpr std::size_t kShortestBar = 5;

constexpr EnumTable<Platform, 3> kPlatformNames{{
    {Platform::mac, "Mac"},
    {Platform::iphone, "iPhone"},
    {Platform::ipad, "iPad"},
}};
static_assert(isComplete(kPlatformNames, Platform::ipad));

std::string dayOf(const std::optional<Instant>& instant) {
  return instant ? formatDay(*instant) : std::string();
}

void addHeading(Page& page, const CLIAppDetail& detail) {
  page.heading(printable(detail.app.name), shown(detail.app.seller));
  if (const auto tagline = shown(detail.tagline); !tagline.empty()) page.line(tagline);
  if (const auto badge = shown(detail.editorialBadge); !badge.empty()) {
    page.line(badge, Ink::yellow);
  }
}

std::string storeText(const CLIAppDetail& detail) {
  return detail.platform == Platform::mac
             ? fmt::format("Mac App Store, {}", detail.country)
             : fmt::format("App Store for {}, {}", platformName(detail.platform), detail.country);
}

std::string priceText(const CLIAppSummary& app, const Page& page) {
  if (app.free == true) return std::string(kFreeText);
  return amountText(app.price, app.currency, app.formattedPrice, page.formats());
}

/// A yearly plan's price says it already, but a person looks for it in one column.
std::string perYearCell(const CLIPurchase& purchase, const std::string& price) {
  const bool isYearly = !purchase.perYearText && purchase.pricePerYear.value_or(0) > 0;
  return isYearly ? price + "/year" : shown(purchase.perYearText);
}

std::string systemText(const CLIAppDetail& detail) {
  const std::string version = shown(detail.app.minimumOS);
  if (version.empty()) return {};
  return fmt::format("{} {} or later", detail.platform == Platform::mac ? "macOS" : "iOS", version);
}

std::string chartText(const ChartPosition& position) {
  std::string text = fmt::format("#{}", position.position);
  if (!position.genreName.empty()) text += " in " + printable(position.genreName);
  if (!position.chart.empty()) text += " (" + printable(position.chart) + ")";
  return text;
}

std::string bar(double share, std::size_t width, const TextStyle& style) {
  auto length = static_cast<std::size_t>(std::lround(share * static_cast<double>(width)));
  if (share > 0) length = std::max<std::size_t>(length, 1);
  std::string text;
  for (std::size_t i = 0; i < length; ++i) text += style.utf8 ? "█" : "#";
  return text + std::string(width - length, ' ');
}

/// One line for each number of stars, from five down. The longest bar is the most frequent one.
void addHistogram(Page& page, const std::vector<std::int64_t>& counts) {
  std::vector<double> amounts;
  std::size_t countWidth = 0;
  for (const std::int64_t count : counts) {
    amounts.push_back(static_cast<double>(std::max<std::int64_t>(count, 0)));
    countWidth = std::max(countWidth, columnCount(page.formats().integer(count)));
  }
  const double most = *std::max_element(amounts.begin(), amounts.end());
  const double all = std::accumulate(amounts.begin(), amounts.end(), 0.0);
  if (most == 0) return;
  // Beside the bar stand the label's place, the stars, the count and the percentage.
  const std::size_t taken = kPageLabelWidth + 2 + 2 + countWidth + 2 + 4;
  const std::size_t room = page.textWidth() > taken ? page.textWidth() - taken : 0;
  const std::size_t width = std::clamp(room, kShortestBar, kLongestBar);
  for (std::size_t i = amounts.size(); i-- > 0;) {
    page.line(fmt::format(
        "{}{} {}  {}  {:>3.0f}%", std::string(kPageLabelWidth, ' '), i + 1,
        inked(bar(amounts[i] / most, width, page.style()), Ink::yellow, page.style()),
        rightAligned(page.formats().integer(counts[i]), countWidth), 100 * amounts[i] / all));
  }
}

void addRating(Page& page, const CLIAppDetail& detail) {
  const CLIAppSummary& app = detail.app;
  // Nobody rated what the catalog knows no rating of.
  const bool unrated = detail.isCatalogRead && !app.rating && !app.ratingCount;
  const std::optional<std::int64_t> count = unrated ? 0 : app.ratingCount;
  page.fact("Rating",
            ratingText(app.rating, count, RatingPlace::line, page.formats(), page.style()),
            Ink::yellow);
  if (detail.ratingHistogram) addHistogram(page, *detail.ratingHistogram);
}

void addFacts(Page& page, const CLIAppDetail& detail) {
  const CLIAppSummary& app = detail.app;
  page.startBlock();
  page.fact("Track ID", std::to_string(app.trackId));
  page.fact("Bundle ID", shown(app.bundleId));
  page.fact("Store", storeText(detail));
  page.fact("Price", priceText(app, page), Ink::green);
  addRating(page, detail);
  page.fact("Category", shown(app.genre));
  page.fact("Version", shown(app.version));
  page.fact("Updated", dayOf(app.lastUpdated));
  page.fact("Released", dayOf(app.releaseDate));
  page.fact("Requires", systemText(detail));
  page.fact("Size", app.sizeBytes ? page.formats().byteCount(*app.sizeBytes) : "");
  page.fact("Architecture", shown(detail.architecture));
  page.fact("Chart", detail.chartPosition ? chartText(*detail.chartPosition) : "");
  page.fact("Store page", shown(app.storeURL));
}

void addRunningText(Page& page, std::string_view heading, const std::optional<std::string>& text) {
  std::vector<std::string> lines = runningLines(text.value_or(""), page.textWidth());
  if (lines.empty()) return;
  const bool cut = !page.style().isWhole && lines.size() > kLongestText;
  if (cut) lines.resize(kLongestText);
  if (lines.back().empty()) lines.pop_back();
  page.startBlock();
  page.line(heading, Ink::bold);
  for (const std::string& line : lines) page.line(line);
  if (cut) page.note("the rest is in --json");
}

/// Ends a list of which not everything was shown.
void addCutNote(Page& page, std::size_t all, std::size_t shownCount) {
  if (all > shownCount) page.note(fmt::format("and {} earlier, in --json", all - shownCount));
}

const std::vector<TableColumn>& purchaseColumns() {
  static const std::vector<TableColumn> kColumns{
      {.heading = "Item", .smallest = 16},
      {.heading = "Price", .align = Align::right, .ink = Ink::green},
      {.heading = "Billing", .leavesAs = 2},
      {.heading = "Per year", .align = Align::right, .leavesAs = 1},
  };
  return kColumns;
}

/// Our own sentences have dashes, which not every encoding can show.
std::string explanationText(MonetizationModel model, const TextStyle& style) {
  std::string text(explanation(model).value_or(""));
  constexpr std::string_view kDash = "—";
  for (auto at = text.find(kDash); at != std::string::npos; at = text.find(kDash, at + 1)) {
    text.replace(at, kDash.size(), dash(style));
  }
  return text;
}

void addPurchases(Page& page, const CLIAppDetail& detail) {
  if (!detail.inAppPurchases) return;
  const std::vector<CLIPurchase>& purchases = *detail.inAppPurchases;
  page.startBlock();
  page.line(fmt::format("In-app purchases ({})", purchases.size()), Ink::bold);
  for (const std::string& line :
       wrapped(explanationText(detail.monetization, page.style()), page.textWidth())) {
    if (!line.empty()) page.line(line);
  }
  if (purchases.empty()) return;
  std::vector<TableRow> rows;
  const std::size_t count = std::min(purchases.size(), kMostPurchases);
  for (const CLIPurchase& p : std::span(purchases).first(count)) {
    const std::string price = amountText(p.price, p.currency, p.formattedPrice, page.formats());
    rows.push_back({printable(p.name), price, shown(p.period), perYearCell(p, price)});
  }
  page.startBlock();
  page.lines(renderTable(purchaseColumns(), rows, page.style()));
  addCutNote(page, purchases.size(), count);
}

const std::vector<TableColumn>& versionColumns() {
  static const std::vector<TableColumn> kColumns{
      {.heading = "Version", .ink = Ink::bold},
      {.heading = "Released"},
      {.heading = "Notes", .ink = Ink::dim, .smallest = 16, .leavesAs = 1},
  };
  return kColumns;
}

void addVersions(Page& page, const CLIAppDetail& detail) {
  if (!detail.recentVersions || detail.recentVersions->empty()) return;
  const std::vector<VersionEntry>& versions = *detail.recentVersions;
  std::vector<TableRow> rows;
  const std::size_t count = std::min(versions.size(), kMostVersions);
  for (const VersionEntry& entry : std::span(versions).first(count)) {
    rows.push_back(
        {printable(entry.version), formatDay(entry.releaseDate), firstLineOf(entry.releaseNotes)});
  }
  page.startBlock();
  page.line("Versions", Ink::bold);
  page.lines(renderTable(versionColumns(), rows, page.style()));
  addCutNote(page, versions.size(), count);
}

}  // namespace

std::string_view platformName(Platform platform) { return textOf(kPlatformNames, platform); }

std::string renderInfoText(const CLIAppDetail& detail, const LocaleFormats& formats,
                           const TextStyle& style) {
  Page page(style, formats);
  addHeading(page, detail);
  addFacts(page, detail);
  addPurchases(page, detail);
  addRunningText(page, "Description", detail.description);
  const std::string version = shown(detail.app.version);
  addRunningText(page, version.empty() ? "What's new" : "What's new in " + version,
                 detail.releaseNotes);
  addVersions(page, detail);
  return page.take();
}

}  // namespace quillet
