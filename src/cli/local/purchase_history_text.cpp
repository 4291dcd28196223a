// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "cli/local/purchase_history_text.h"

#include <fmt/format.h>

#include "base/columns.h"
#include "base/text.h"
#include "cli/local/list_text.h"

namespace quillet {

namespace {

constexpr std::size_t kNameWidth = 35;
constexpr std::size_t kPriceWidth = 11;

std::string changeText(const CLIPurchaseRecord& record, const LocaleFormats& formats) {
  if (record.previousPrice) {
    const std::string before =
        "was " + formats.currency(*record.previousPrice, shown(record.currency));
    return record.changePercent ? before + fmt::format(" ({:+.1f}%)", *record.changePercent)
                                : before;
  }
  const auto first = record.history.front().when;
  return first ? "unchanged since " + formatDay(*first) : "unchanged";
}

std::string lineOf(const CLIPurchaseRecord& record, const LocaleFormats& formats,
                   const TextStyle& style) {
  return nameColumn(record.name, kNameWidth, style) +
         column(formats.currency(record.price, shown(record.currency)), kPriceWidth) +
         changeText(record, formats);
}

}  // namespace

std::string renderPurchaseHistoryText(const CLIPurchaseHistoryPayload& payload,
                                      const LocaleFormats& formats, const TextStyle& style) {
  std::vector<std::string> lines{printable(payload.name) + ", in-app purchase prices"};
  if (!payload.watched)
    lines.emplace_back("No longer on the watchlist, so these stopped updating.");
  if (payload.storefronts.empty()) {
    lines.emplace_back(
        "  Nothing recorded yet. In-app prices are read with the watchlist's price checks, every "
        "few hours while Quillet runs.");
  }
  for (const CLIPurchaseStorefront& storefront : payload.storefronts) {
    // One storefront needs no heading: most users have one.
    if (payload.storefronts.size() > 1)
      lines.push_back("Storefront " + printable(storefront.country));
    for (const CLIPurchaseRecord& record : storefront.purchases) {
      lines.push_back(lineOf(record, formats, style));
    }
  }
  return join(lines, "\n");
}

}  // namespace quillet
