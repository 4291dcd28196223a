// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "cli/online/prices/price_history_result.h"

#include "analysis/price_record.h"
#include "base/json_writer.h"

namespace quillet {

namespace {

CLIPriceHistoryPayload payloadOf(const PriceSeedReader& reader, std::string country) {
  const PriceSeed::Entry& entry = reader.entry();
  const std::span<const PriceSeed::Point> points = reader.points();
  CLIPriceHistoryPayload payload;
  payload.trackId = entry.trackId;
  payload.name = entry.name.text();
  payload.seller = entry.seller.text();
  payload.country = std::move(country);
  payload.currency = entry.currency.text();
  payload.currentPrice = points.back().price;
  payload.lowestRecorded = lowestOf(points).price;
  payload.highestRecorded = highestOf(points).price;
  if (const auto step = lastStep(points)) {
    payload.previousPrice = step->was;
    payload.lastChange = step->changedOn;
    if (const auto percent = percentOf(*step)) payload.lastChangePercent = shownPercent(*percent);
  }
  payload.recordedFrom = points.front().day;
  payload.generatedAt = reader.generatedAt();
  payload.goneSince = entry.goneSince;
  payload.points.assign(points.begin(), points.end());
  return payload;
}

void writePoint(JsonWriter& writer, const PriceSeed::Point& point) {
  writer.beginObject();
  writer.member("date", Instant(point.day));
  writer.member("price", point.price);
  writer.endObject();
}

}  // namespace

std::optional<CLIPriceHistoryPayload> findPriceHistory(PriceSeedReader& reader,
                                                       std::int64_t trackId, std::string country) {
  while (reader.next()) {
    if (reader.entry().trackId == trackId) return payloadOf(reader, std::move(country));
  }
  return {};
}

std::string renderPriceHistoryJson(const CLIPriceHistoryPayload& payload) {
  return jsonObject([&](JsonWriter& writer) {
    writer.member("country", payload.country);
    writer.member("currency", payload.currency);
    writer.member("currentPrice", payload.currentPrice);
    writer.member("generatedAt", payload.generatedAt);
    writer.member("goneSince", payload.goneSince);
    writer.member("highestRecorded", payload.highestRecorded);
    writer.member("lastChange", payload.lastChange);
    writer.member("lastChangePercent", payload.lastChangePercent);
    writer.member("lookedAt", payload.lookedAt);
    writer.member("lowestRecorded", payload.lowestRecorded);
    writer.member("name", payload.name);
    writer.list("points", payload.points, writePoint);
    writer.member("previousPrice", payload.previousPrice);
    writer.member("recordedFrom", payload.recordedFrom);
    writer.member("seller", payload.seller);
    writer.member("trackId", payload.trackId);
  });
}

}  // namespace quillet
