// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "cli/online/prices/storefronts_result.h"

#include <fmt/format.h>

#include <algorithm>

#include "base/json_writer.h"
#include "base/text.h"
#include "cli/online/app/app_summary.h"
#include "cli/text_table.h"

namespace quillet {

namespace {

void writeStorefront(JsonWriter& writer, const CLIStorefrontPrice& storefront) {
  writer.beginObject();
  writer.member("available", storefront.available);
  writer.member("country", storefront.country);
  writer.member("currency", storefront.currency);
  writer.member("formattedPrice", storefront.formattedPrice);
  writer.member("price", storefront.price);
  writer.endObject();
}

std::string priceCell(const CLIStorefrontPrice& storefront, const TextStyle& style) {
  if (!storefront.available) return "not sold here";
  return printable(storefront.formattedPrice.value_or(std::string(dash(style))));
}

const std::vector<TableColumn>& storefrontColumns() {
  static const std::vector<TableColumn> kColumns{
      {.heading = "Storefront"},
      {.heading = "Price", .ink = Ink::green},
      {.heading = "Currency", .ink = Ink::dim},
  };
  return kColumns;
}

}  // namespace

CLIStorefrontPrice storefrontPrice(std::string country, const std::optional<ITunesApp>& app,
                                   const LocaleFormats& formats) {
  CLIStorefrontPrice result{std::move(country), app.has_value(), {}, {}, {}};
  if (!app) return result;
  const CLIAppSummary summary = summaryOf(*app, formats);
  result.price = summary.price;
  result.formattedPrice = summary.formattedPrice;
  result.currency = summary.currency;
  return result;
}

std::string renderStorefrontsJson(const CLIStorefrontsPayload& payload) {
  return jsonObject([&](JsonWriter& writer) {
    writer.member("name", payload.name);
    writer.list("storefronts", payload.storefronts, writeStorefront);
    writer.member("trackId", payload.trackId);
  });
}

std::string renderStorefrontsText(const CLIStorefrontsPayload& payload, const TextStyle& style) {
  const auto sold = std::count_if(payload.storefronts.begin(), payload.storefronts.end(),
                                  [](const CLIStorefrontPrice& each) { return each.available; });
  std::vector<TableRow> rows;
  for (const CLIStorefrontPrice& each : payload.storefronts) {
    rows.push_back({each.country, priceCell(each, style), shown(each.currency)});
  }
  const std::string fact =
      fmt::format(", sold in {} of {} tracked storefronts.", sold, rows.size());
  std::string text = inked(printable(payload.name), Ink::bold, style) + fact + "\n\n" +
                     renderTable(storefrontColumns(), rows, style);
  text.pop_back();  // the runner ends the last line
  return text;
}

}  // namespace quillet
