// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "cli/local/purchase_history.h"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>

#include "analysis/billing_period.h"
#include "analysis/price_series.h"
#include "base/json_writer.h"
#include "cli/cli_error.h"
#include "cli/local/local_statement.h"
#include "cli/local/recorded_purchases.h"
#include "cli/track_id_operand.h"

namespace quillet {

namespace {

CLIError notWatched(std::int64_t trackId, const CLIOptions& options) {
  const std::string place =
      options.countryIsExplicit ? fmt::format(" in the {} storefront", options.country) : "";
  return {CLIError::Code::notFound,
          fmt::format("{} isn't on the watchlist{}. Quillet records in-app purchase prices only "
                      "for watched apps, from their first price check after being added.",
                      trackId, place),
          {"Add it to the watchlist in Quillet.",
           fmt::format("quillet info {} --json lists today's in-app purchases.", trackId)}};
}

bool isAskedFor(std::string_view country, const CLIOptions& options) {
  return !options.countryIsExplicit || country == options.country;
}

/// What the watchlist has of an app.
struct Watch {
  std::optional<std::string> name;  ///< where need be, as it is called in another storefront
  bool asked = false;               ///< whether it is watched in a storefront that is asked for
};

Watch readWatch(const CLILocalStore& store, std::int64_t trackId, const CLIOptions& options) {
  LocalStatement rows(
      store, fmt::format("SELECT ZCOUNTRY, ZNAME FROM ZWATCHEDAPP WHERE ZTRACKID = {}", trackId));
  Watch watch;
  while (!watch.asked && rows.next()) {
    auto name = rows.text(1);
    if (!name) continue;
    watch = {std::move(name), isAskedFor(rows.text(0).value_or(""), options)};
  }
  return watch;
}

void addChanges(CLIPurchaseRecord& record, const PurchaseSeries& series) {
  const PriceChanges changes = changesOf(series.history);
  record.changes = changes.count;
  record.since = series.history[changes.last].when;
  if (changes.count == 0) return;
  const double before = series.history[changes.last - 1].amount;
  record.previousPrice = before;
  if (before != 0) record.changePercent = (record.price - before) / before * 100;
}

CLIPurchaseRecord recordOf(PurchaseSeries series) {
  CLIPurchaseRecord record;
  record.price = series.history.back().amount;
  record.currency = series.history.back().currency;
  addChanges(record, series);
  record.name = std::move(series.name);
  if (series.key.find('|') == std::string::npos) record.productId = std::move(series.key);
  record.subscription = series.period.has_value();
  if (const auto days = periodDays(series.period.value_or(""))) {
    record.periodDays = std::llround(*days);
  }
  record.period = std::move(series.period);
  record.history = std::move(series.history);
  return record;
}

CLIPurchaseStorefront& storefrontOf(CLIPurchaseHistoryPayload& payload,
                                    const std::string& country) {
  const auto found = std::find_if(payload.storefronts.begin(), payload.storefronts.end(),
                                  [&](const auto& known) { return known.country == country; });
  if (found != payload.storefronts.end()) return *found;
  return payload.storefronts.emplace_back(CLIPurchaseStorefront{country, {}});
}

void writePrice(JsonWriter& writer, const RecordedPrice& price) {
  writer.beginObject();
  writer.member("date", price.when);
  writer.member("price", price.amount);
  writer.endObject();
}

void writeRecord(JsonWriter& writer, const CLIPurchaseRecord& record) {
  writer.beginObject();
  writer.member("changePercent", record.changePercent);
  writer.member("changes", record.changes);
  writer.member("currency", record.currency);
  writer.list("history", record.history, writePrice);
  writer.member("name", record.name);
  writer.member("period", record.period);
  writer.member("periodDays", record.periodDays);
  writer.member("previousPrice", record.previousPrice);
  writer.member("price", record.price);
  writer.member("productId", record.productId);
  writer.member("since", record.since);
  writer.member("subscription", record.subscription);
  writer.endObject();
}

void writeStorefront(JsonWriter& writer, const CLIPurchaseStorefront& storefront) {
  writer.beginObject();
  writer.member("country", storefront.country);
  writer.list("purchases", storefront.purchases, writeRecord);
  writer.endObject();
}

}  // namespace

CLIPurchaseHistoryPayload readPurchaseHistory(const LocalCall& call) {
  CLIPurchaseHistoryPayload payload;
  payload.trackId = numericTrackId(call.options.operands, "purchase-history needs one track ID.",
                                   "quillet purchase-history 1176895641 --json");
  const CLILocalStore store = CLILocalStore::open(call.environment, call.queryLog);
  const Watch watch = readWatch(store, payload.trackId, call.options);
  payload.watched = watch.asked;

  auto recorded = readPurchaseSeries(store, {&payload.trackId, 1});
  for (PurchaseSeries& series : recorded ? *recorded : std::vector<PurchaseSeries>{}) {
    if (!isAskedFor(series.country, call.options)) continue;
    storefrontOf(payload, series.country).purchases.push_back(recordOf(std::move(series)));
  }
  if (!watch.asked && payload.storefronts.empty()) throw notWatched(payload.trackId, call.options);
  payload.name = watch.name ? *watch.name : payload.storefronts.front().purchases.front().name;
  return payload;
}

std::string renderPurchaseHistoryJson(const CLIPurchaseHistoryPayload& payload) {
  return jsonObject([&](JsonWriter& writer) {
    writer.member("name", payload.name);
    writer.list("storefronts", payload.storefronts, writeStorefront);
    writer.member("trackId", payload.trackId);
    writer.member("watched", payload.watched);
  });
}

}  // namespace quillet
