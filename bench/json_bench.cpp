// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT
//
// JSON in and out, beside what one would use instead. The input is a search answer of 200 apps in
// the store's own shape, 1 to 2 MB with descriptions and release notes: QUILLET_BENCH_ANSWER names
// its file.

#include <benchmark/benchmark.h>
#include <nlohmann/json.hpp>

#include <cstdlib>

#include "cli/online/app/app_summary.h"
#include "store/records/itunes_app_json.h"
#include "system/whole_file.h"

namespace quillet {
namespace {

constexpr std::size_t kSummaries = 10'000;

std::string answer() {
  constexpr std::size_t kMost = std::size_t{16} << 20;
  const char* file = std::getenv("QUILLET_BENCH_ANSWER");
  return readWholeFile(file != nullptr ? file : "QUILLET_BENCH_ANSWER", kMost);
}

std::vector<CLIAppSummary> summaries() {
  const LocaleFormats formats(UserLocale{"en_US", "en_US", "en_US", "en_US"});
  const auto apps = decodeSearchResponse(answer());
  std::vector<CLIAppSummary> result;
  for (std::size_t i = 0; i < kSummaries; ++i) {
    result.push_back(summaryOf(apps[i % apps.size()], formats));
  }
  return result;
}

void decodeRecords(benchmark::State& state) {
  const std::string body = answer();
  for (auto _ : state) benchmark::DoNotOptimize(decodeSearchResponse(body));
  state.counters["apps"] = static_cast<double>(decodeSearchResponse(body).size());
  state.counters["bytes"] = static_cast<double>(body.size());
}
BENCHMARK(decodeRecords)->Unit(benchmark::kMillisecond);

void parseWithNlohmann(benchmark::State& state) {
  const std::string body = answer();
  for (auto _ : state) benchmark::DoNotOptimize(nlohmann::json::parse(body));
}
BENCHMARK(parseWithNlohmann)->Unit(benchmark::kMillisecond);

void writeSummaries(benchmark::State& state) {
  const auto items = summaries();
  for (auto _ : state) {
    JsonWriter writer;
    writer.beginArray();
    for (const CLIAppSummary& item : items) writeSummary(writer, item);
    writer.endArray();
    benchmark::DoNotOptimize(writer.take());
  }
}
BENCHMARK(writeSummaries)->Unit(benchmark::kMillisecond);

void put(nlohmann::json& /*object*/) {}

/// Keys and values in turn; what is absent has no key.
template <typename T, typename... More>
void put(nlohmann::json& object, const char* key, const T& value, const More&... more) {
  if constexpr (requires { value.has_value(); }) {
    if (value) put(object, key, *value);
  } else if constexpr (std::is_same_v<T, Instant>) {
    object[key] = formatInternetDate(value);
  } else {
    object[key] = value;
  }
  put(object, more...);
}

nlohmann::json objectOf(const CLIAppSummary& app) {
  nlohmann::json object;
  put(object, "bundleId", app.bundleId, "currency", app.currency);
  put(object, "formattedPrice", app.formattedPrice, "free", app.free);
  put(object, "genre", app.genre, "genres", app.genres, "kind", app.kind);
  put(object, "lastUpdated", app.lastUpdated, "minimumOS", app.minimumOS);
  put(object, "name", app.name, "price", app.price, "rating", app.rating);
  put(object, "ratingCount", app.ratingCount, "releaseDate", app.releaseDate);
  put(object, "seller", app.seller, "sizeBytes", app.sizeBytes, "storeURL", app.storeURL);
  put(object, "trackId", app.trackId, "version", app.version);
  return object;
}

void writeWithNlohmann(benchmark::State& state) {
  const auto items = summaries();
  for (auto _ : state) {
    nlohmann::json list = nlohmann::json::array();
    for (const CLIAppSummary& item : items) list.push_back(objectOf(item));
    benchmark::DoNotOptimize(list.dump(2));
  }
}
BENCHMARK(writeWithNlohmann)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace quillet
