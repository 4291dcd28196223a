// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "library/price_seed_service.h"

#include <algorithm>
#include <chrono>
#include <utility>

#include "base/text.h"
#include "library/price_seed_import.h"
#include "net/network_errors.h"
#include "net/worker.h"
#include "system/settings_keys.h"

namespace quillet {
namespace {

/// The data is made once a day, and not at the same minute.
constexpr std::chrono::hours kBetweenChecks{20};

/// Some 10,000 prices: a few hundredths of a second, after which others have their turn.
constexpr std::size_t kAppsAtOnce = 2000;

std::string keyFor(std::string_view prefix, const std::string& country) {
  return std::string(prefix) + country;
}

void add(SeedImportResult& sum, const SeedImportResult& part) {
  sum.storefronts += part.storefronts;
  sum.appsSeeded += part.appsSeeded;
  sum.pointsInserted += part.pointsInserted;
}

std::string joinedCountries(const SeedManifest& manifest) {
  std::vector<std::string> countries;
  for (const SeedManifest::Entry& entry : manifest.storefronts) countries.push_back(entry.country);
  return join(countries, ",");
}

bool lists(const SeedManifest& manifest, const std::string& country) {
  return std::any_of(manifest.storefronts.begin(), manifest.storefronts.end(),
                     [&](const SeedManifest::Entry& entry) { return entry.country == country; });
}

}  // namespace

PriceSeedService::PriceSeedService(DataStore& store, PriceDataClient& prices,
                                   WritableSettings& settings, const Clock& clock)
    : store_(store), prices_(prices), settings_(settings), clock_(clock) {}

bool PriceSeedService::isDue(const std::string& country) const {
  const auto stored = settings_.text(keyFor(kPriceSeedLastWebCheckPrefix, country));
  const auto last = parseInternetDate(stored.value_or(""));
  if (!last) return true;
  // A check in the future was noted by a clock that has been set right since.
  return *last > clock_.now() || clock_.now() - *last >= kBetweenChecks;
}

void PriceSeedService::noteCheck(const std::string& country) {
  settings_.write(
      {{keyFor(kPriceSeedLastWebCheckPrefix, country), formatInternetDate(clock_.now())}});
}

/// Without a manifest each storefront is asked for.
Task<std::vector<std::string>> PriceSeedService::publishedAmong(std::vector<std::string> countries,
                                                                StopToken stop) {
  SeedManifest manifest;
  try {
    manifest = co_await prices_.manifest(std::move(stop));
  } catch (const PriceDataError& error) {
    if (error.kind() != PriceDataError::Kind::nothingPublished) throw;
    co_return countries;
  }
  settings_.write({{std::string(kPriceSeedPublishedStorefronts.key), joinedCountries(manifest)}});
  std::erase_if(countries, [&](const std::string& country) { return !lists(manifest, country); });
  co_return countries;
}

Task<SeedImportResult> PriceSeedService::importStorefronts(std::vector<std::string> countries,
                                                           StopToken stop) {
  SeedImportResult result;
  std::erase_if(countries, [this](const std::string& country) { return !isDue(country); });
  if (countries.empty()) co_return result;
  const std::vector<std::string> published = co_await publishedAmong(countries, stop);
  for (const std::string& country : countries) {
    try {
      if (std::find(published.begin(), published.end(), country) == published.end()) {
        throw PriceDataError::empty(country);
      }
      const SeedImportResult part = co_await importStorefront(country, stop);
      add(result, part);
    } catch (const PriceDataError& error) {
      result.failures.push_back({country, error.kind(), error.what()});
    }
    noteCheck(country);
  }
  co_return result;
}

Task<SeedImportResult> PriceSeedService::importStorefront(std::string country, StopToken stop) {
  PriceSeedReader reader = co_await prices_.storefront(country, stop);
  const std::string stamp = reader.stamp();
  settings_.write({{keyFor(kPriceSeedRemoteStampPrefix, country), stamp}});
  const bool known = co_await store_.read(isSeedImported, country, stamp);
  if (known) co_return SeedImportResult{};
  auto collect = [reader = std::move(reader), country]() mutable {
    return std::make_shared<const StorefrontSeed>(collectSeed(std::move(reader), country));
  };
  Task<std::shared_ptr<const StorefrontSeed>> collecting = onWorker(std::move(collect), stop);
  std::shared_ptr<const StorefrontSeed> seed = co_await collecting;
  SeedImportResult result = co_await keep(std::move(seed), std::move(stop));
  settings_.write({{std::string(kPriceSeedImportedStamp.key), stamp}});
  co_return result;
}

Task<SeedImportResult> PriceSeedService::keep(std::shared_ptr<const StorefrontSeed> seed,
                                              StopToken stop) {
  SeedImportResult result;
  for (std::size_t first = 0; first < seed->apps.size(); first += kAppsAtOnce) {
    if (stop.stopRequested()) throw cancelledError();
    const SeedPiece piece{seed, first, std::min(kAppsAtOnce, seed->apps.size() - first)};
    const SeededPiece added = co_await store_.change(importSeedPiece, piece);
    result.appsSeeded += added.apps;
    result.pointsInserted += added.points;
  }
  const Instant now = clock_.now();
  co_await store_.change(finishSeedImport, seed->country, seed->stamp, now);
  result.storefronts = 1;
  co_return result;
}

}  // namespace quillet
