// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "cli/online/prices/price_history_text.h"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>

#include "analysis/price_record.h"
#include "base/text.h"
#include "cli/online/prices/price_text.h"
#include "cli/online/prices/step_chart.h"
#include "cli/page.h"

namespace quillet {

namespace {

constexpr std::size_t kMostChanges = 10;

std::string price(double amount, const CLIPriceHistoryPayload& payload, const Page& page) {
  return priceText(amount, payload.currency, page.formats());
}

std::string nowText(const CLIPriceHistoryPayload& payload, const Page& page) {
  const double now = payload.currentPrice;
  std::string text = price(now, payload, page);
  if (payload.lowestRecorded == payload.highestRecorded) return text;
  if (now == payload.lowestRecorded) text += ", the lowest recorded";
  if (now == payload.highestRecorded) text += ", the highest recorded";
  return text;
}

/// "down 60.1% from $4.99"; without the percentage where it rose from nothing.
std::string moveText(double was, double now, std::optional<double> percent,
                     const std::string& wasText, const Page& page) {
  const std::string_view way = now < was ? "down" : "up";
  if (!percent) return fmt::format("{} from {}", way, wasText);
  return fmt::format("{} {}% from {}", way, page.formats().oneDecimal(std::abs(*percent)), wasText);
}

std::string lastChangeText(const CLIPriceHistoryPayload& payload, const Page& page) {
  if (!payload.lastChange || !payload.previousPrice) return "none recorded";
  const double was = *payload.previousPrice;
  return fmt::format("{}, {}", formatDay(*payload.lastChange),
                     moveText(was, payload.currentPrice, payload.lastChangePercent,
                              price(was, payload, page), page));
}

std::string recordedText(const CLIPriceHistoryPayload& payload, const Page& page) {
  const std::string since = "since " + formatDay(payload.recordedFrom);
  if (payload.lowestRecorded == payload.highestRecorded) return since;
  return fmt::format("{} to {}, {}", price(payload.lowestRecorded, payload, page),
                     price(payload.highestRecorded, payload, page), since);
}

void addChart(Page& page, const CLIPriceHistoryPayload& payload) {
  using std::chrono::days;
  using std::chrono::floor;
  StepChartFrame frame{page.textWidth(), payload.points.back().day};
  if (payload.generatedAt) frame.end = std::max(frame.end, floor<days>(*payload.generatedAt));
  page.startBlock();
  page.lines(stepChart(
      payload.points, frame, [&](double amount) { return price(amount, payload, page); },
      page.style()));
}

/// Newest first.
std::vector<TableRow> changeRows(const CLIPriceHistoryPayload& payload, const Page& page) {
  std::vector<TableRow> rows;
  const std::span points(payload.points);
  for (std::size_t i = points.size(); i-- > 1;) {
    const auto step = lastStep(points.subspan(i - 1, 2));
    if (!step) continue;
    const auto percent = percentOf(*step);
    rows.push_back({formatDay(step->changedOn), price(step->now, payload, page),
                    moveText(step->was, step->now,
                             percent ? std::optional(shownPercent(*percent)) : std::nullopt,
                             price(step->was, payload, page), page)});
  }
  return rows;
}

const std::vector<TableColumn>& changeColumns() {
  static const std::vector<TableColumn> kColumns{
      {.heading = "Date"},
      {.heading = "Price", .align = Align::right, .ink = Ink::green},
      {.heading = "Change"},
  };
  return kColumns;
}

void addChanges(Page& page, const CLIPriceHistoryPayload& payload) {
  std::vector<TableRow> rows = changeRows(payload, page);
  if (rows.size() < 2) return;  // the one change stands above
  page.startBlock();
  page.line(fmt::format("Changes ({})", rows.size()), Ink::bold);
  const std::size_t all = rows.size();
  rows.resize(std::min(all, kMostChanges));
  page.lines(renderTable(changeColumns(), rows, page.style()));
  if (all > rows.size()) page.note(fmt::format("and {} earlier, in --json", all - rows.size()));
}

}  // namespace

std::string renderPriceHistoryText(const CLIPriceHistoryPayload& payload,
                                   const LocaleFormats& formats, const TextStyle& style) {
  Page page(style, formats);
  page.heading(printable(payload.name.value_or(fmt::format("App {}", payload.trackId))),
               shown(payload.seller));
  page.startBlock();
  page.fact("Track ID", std::to_string(payload.trackId));
  page.fact("Storefront", payload.country);
  if (payload.goneSince) {
    page.fact("Not sold", "since " + formatDay(*payload.goneSince));
    page.fact("Last price", nowText(payload, page));
  } else {
    page.fact("Now", nowText(payload, page), Ink::green);
  }
  page.fact("Last change", lastChangeText(payload, page));
  page.fact("Recorded", recordedText(payload, page));
  page.fact("Published", payload.generatedAt ? formatDay(*payload.generatedAt) : "");
  if (!payload.oldLook.empty()) page.line(payload.oldLook, Ink::yellow);
  addChart(page, payload);
  addChanges(page, payload);
  return page.take();
}

}  // namespace quillet
