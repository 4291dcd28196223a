// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "cli/local/watchlist_text.h"

#include <cmath>

#include "base/columns.h"
#include "base/text.h"
#include "cli/local/counted.h"
#include "cli/local/list_text.h"
#include "cli/text_table.h"

namespace quillet {

namespace {

constexpr std::size_t kIdWidth = 12;
constexpr std::size_t kNameWidth = 31;
constexpr std::size_t kPriceWidth = 11;

std::string amount(double price, const CLIWatchedApp& app, const LocaleFormats& formats) {
  return formats.currency(price, shown(app.currency));
}

std::string priceText(const CLIWatchedApp& app, const LocaleFormats& formats,
                      const TextStyle& style) {
  std::string text = shown(app.formattedPrice);
  if (!text.empty()) return text;
  return app.currentPrice ? amount(*app.currentPrice, app, formats) : std::string(dash(style));
}

std::string noteText(const CLIWatchedApp& app, const LocaleFormats& formats) {
  const double change = app.changeSinceAdded.value_or(0);
  if (change != 0) {
    return (change < 0 ? "down " : "up ") + amount(std::abs(change), app, formats) + " since added";
  }
  return app.targetPrice ? "target " + amount(*app.targetPrice, app, formats) : "";
}

std::string purchasesText(const CLIWatchedApp& app) {
  const std::int64_t changed = app.purchasesChanged.value_or(0);
  if (changed == 0) return {};
  return "  " + counted(static_cast<std::size_t>(changed), "in-app price") + " changed";
}

std::string lineOf(const CLIWatchedApp& app, const LocaleFormats& formats, const TextStyle& style) {
  return column(std::to_string(app.trackId), kIdWidth) + nameColumn(app.name, kNameWidth, style) +
         column(priceText(app, formats, style), kPriceWidth) + noteText(app, formats) +
         (app.unavailable == true ? "  (no longer sold)" : "") + purchasesText(app);
}

}  // namespace

std::string renderWatchlistText(const CLIWatchlist& watchlist, const LocaleFormats& formats,
                                const TextStyle& style) {
  if (watchlist.total == 0) return "Nothing on the watchlist yet.";
  std::string text = listHeader(watchlist.items.size(), watchlist.total, "watching") + '\n';
  for (const CLIWatchedApp& app : watchlist.items) text += '\n' + lineOf(app, formats, style);
  return text;
}

}  // namespace quillet
