// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "publisher/price_files.h"

#include <fmt/format.h>
#include <zlib.h>

#include <algorithm>
#include <array>
#include <memory>
#include <utility>

#include "base/json_writer.h"

namespace quillet {

namespace {

// Readers refuse a higher one than they know.
constexpr int kSchema = 1;

/// What a storefront's file begins with, up to its stamp.
constexpr std::string_view kHead = R"({"generatedAt":")";

auto dayOf(const CollectedPrice& price) {
  return std::chrono::floor<std::chrono::days>(price.seen);
}

/// The last price of each day, without those that are the same as the one before.
std::vector<CollectedPrice> dailyChanges(const std::vector<CollectedPrice>& prices) {
  std::vector<CollectedPrice> changes;
  for (std::size_t i = 0; i < prices.size(); ++i) {
    const bool isLastOfDay = i + 1 == prices.size() || dayOf(prices[i + 1]) != dayOf(prices[i]);
    const bool isNew = changes.empty() || changes.back().price != prices[i].price;
    if (isLastOfDay && isNew) changes.push_back(prices[i]);
  }
  return changes;
}

bool hasStayed(const RecordedApp& app) { return app.prices.size() < 2; }

void writePrices(JsonWriter& json, const std::vector<CollectedPrice>& prices) {
  json.key("p");
  json.beginArray();
  for (const CollectedPrice& price : prices) {
    json.beginObject();
    json.member("d", formatDay(price.seen));
    json.member("v", price.price);
    json.endObject();
  }
  json.endArray();
}

void writeApp(JsonWriter& json, const RecordedApp& app) {
  json.beginObject();
  json.member("a", std::to_string(app.trackId));
  json.member("c", app.currency);
  if (app.goneSince) json.member("g", formatDay(*app.goneSince));
  if (!app.kind.empty()) json.member("k", app.kind);
  json.member("n", app.name);
  writePrices(json, app.prices);
  if (!app.seller.empty()) json.member("s", app.seller);
  json.endObject();
}

void writeEntry(JsonWriter& json, const ManifestEntry& entry) {
  json.beginObject();
  json.member("apps", entry.apps);
  json.member("country", entry.country);
  json.member("file", priceFileName(entry.country));
  json.member("lookedAt", entry.looked);
  json.endObject();
}

Instant newestStamp(const std::vector<ManifestEntry>& entries) {
  const auto newest = std::ranges::max_element(entries, {}, &ManifestEntry::stamp);
  return newest == entries.end() ? Instant{} : newest->stamp;
}

}  // namespace

std::string priceFileName(std::string_view country) {
  return fmt::format("changes-{}.json.gz", country);
}

RecordedStorefront onlyMoved(RecordedStorefront storefront) {
  for (RecordedApp& app : storefront.apps) app.prices = dailyChanges(app.prices);
  std::erase_if(storefront.apps, hasStayed);
  std::ranges::sort(storefront.apps, {}, &RecordedApp::trackId);
  return storefront;
}

PriceFileMaker::PriceFileMaker(std::string country, Instant stamp, TakeBytes take)
    : country_(std::move(country)), packer_(std::move(take)) {
  write(fmt::format(R"({}{}","schema":{},"storefront":{{"apps":[)", kHead,
                    formatInternetDate(stamp), kSchema));
}

void PriceFileMaker::add(RecordedApp app) {
  app.prices = dailyChanges(app.prices);
  if (hasStayed(app)) return;
  JsonWriter json(JsonLayout::compact);
  writeApp(json, app);
  write(apps_++ == 0 ? "" : ",");
  write(json.take());
}

void PriceFileMaker::end() {
  write(fmt::format(R"(],"country":"{}"}}}})", country_));
  packer_.end();
}

void PriceFileMaker::write(std::string_view json) {
  unpackedSize_ += json.size();
  packer_.add(json);
}

std::optional<Instant> stampOfPriceFile(const std::filesystem::path& file) {
  const std::unique_ptr<gzFile_s, decltype(&gzclose)> opened(gzopen(file.c_str(), "rbe"), &gzclose);
  std::array<char, 64> head{};
  if (!opened || gzread(opened.get(), head.data(), head.size() - 1) <= 0) return {};
  std::string_view text(head.data());
  if (!text.starts_with(kHead)) return {};
  text.remove_prefix(kHead.size());
  return parseInternetDate(text.substr(0, text.find('"')));
}

PublishedFile priceFile(const RecordedStorefront& moved) {
  PublishedFile file{priceFileName(moved.country), {}};
  PriceFileMaker maker(moved.country, moved.stamp,
                       [&](std::string_view piece) { file.bytes += piece; });
  for (const RecordedApp& app : moved.apps) maker.add(app);
  maker.end();
  return file;
}

PublishedFile manifestFile(const std::vector<ManifestEntry>& entries) {
  JsonWriter json;
  json.beginObject();
  json.member("generatedAt", newestStamp(entries));
  json.member("schema", kSchema);
  json.key("storefronts");
  json.beginArray();
  for (const ManifestEntry& entry : entries) writeEntry(json, entry);
  json.endArray();
  json.endObject();
  return {std::string(kManifestName), json.take() + '\n'};
}

}  // namespace quillet
