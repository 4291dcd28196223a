// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "library/price_seed_service.h"

#include <algorithm>
#include <chrono>
#include <utility>

#include "base/errors.h"
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

PriceSeedService::PriceSeedService(DataStore& store, PriceSeedClient& prices,
                                   WritableSettings& settings, const Clock& clock)
    : store_(store), prices_(prices), settings_(settings), clock_(clock) {}

std::optional<Instant> PriceSeedService::lastCheckOf(const std::string& country) const {
  const auto unkept = unkeptChecks_.find(country);
  if (unkept != unkeptChecks_.end()) return unkept->second;
  const auto stored = settings_.text(keyFor(kPriceSeedLastWebCheckPrefix, country));
  return parseInternetDate(stored.value_or(""));
}

std::optional<Instant> PriceSeedService::nextCheckOf(const std::string& country) const {
  const auto last = lastCheckOf(country);
  const Instant now = clock_.now();
  // A check in the future was noted by a clock that has been set right since.
  if (!last || *last > now || now - *last >= kBetweenChecks) return {};
  return *last + kBetweenChecks;
}

std::optional<Instant> PriceSeedService::lastLookAt(const std::string& country) const {
  return parseInternetDate(settings_.text(keyFor(kPriceSeedLookedAtPrefix, country)).value_or(""));
}

bool PriceSeedService::isDue(const std::string& country) const {
  return !nextCheckOf(country).has_value();
}

void PriceSeedService::noteCheck(const std::string& country) {
  const Instant now = clock_.now();
  unkeptChecks_.erase(country);
  if (!keepSetting(keyFor(kPriceSeedLastWebCheckPrefix, country), formatInternetDate(now))) {
    unkeptChecks_.emplace(country, now);
  }
}

/// False where it could not be kept: notes are no reason to do without the prices.
bool PriceSeedService::keepSetting(std::string key, std::string value) {
  try {
    settings_.write({{std::move(key), std::move(value)}});
    return true;
  } catch (const BadSetting& failure) {
    unkeptSettings_ = failure.what();
    return false;
  }
}

/// Without a manifest each storefront is asked for.
Task<std::vector<std::string>> PriceSeedService::publishedAmong(std::vector<std::string> countries,
                                                                StopToken stop) {
  SeedManifest manifest;
  try {
    manifest = co_await prices_.manifest(std::move(stop));
  } catch (const PriceSeedError& error) {
    if (error.kind() != PriceSeedError::Kind::nothingPublished) throw;
    co_return countries;
  }
  keepSetting(std::string(kPriceSeedPublishedStorefronts.key), joinedCountries(manifest));
  for (const std::string& country : countries) {
    const std::optional<Instant> looked = lastLookIn(manifest, country);
    keepSetting(keyFor(kPriceSeedLookedAtPrefix, country),
                looked ? formatInternetDate(*looked) : std::string());
  }
  std::erase_if(countries, [&](const std::string& country) { return !lists(manifest, country); });
  co_return countries;
}

Task<SeedImportResult> PriceSeedService::importStorefronts(std::vector<std::string> countries,
                                                           StopToken stop, SeedImportCall call) {
  SeedImportResult result;
  if (call.check == SeedCheck::whenDue)
    std::erase_if(countries, [this](const std::string& country) { return !isDue(country); });
  if (countries.empty()) co_return result;
  const std::vector<std::string> published = co_await publishedAmong(countries, stop);
  for (const std::string& country : countries) {
    try {
      if (std::find(published.begin(), published.end(), country) == published.end()) {
        throw PriceSeedError::empty(country);
      }
      const SeedImportResult part = co_await importStorefront(country, stop, call);
      add(result, part);
    } catch (const PriceSeedError& error) {
      result.failures.push_back({country, error.kind(), error.what()});
    }
    noteCheck(country);
  }
  result.unkeptSettings = std::exchange(unkeptSettings_, {});
  co_return result;
}

Task<SeedImportResult> PriceSeedService::importStorefront(std::string country, StopToken stop,
                                                          SeedImportCall call) {
  if (call.progress) call.progress({country});
  PriceSeedReader reader = co_await prices_.storefront(country, stop);
  const std::string stamp = reader.stamp();
  keepSetting(keyFor(kPriceSeedRemoteStampPrefix, country), stamp);
  const bool known = co_await store_.read(isSeedImported, country, stamp);
  if (known) co_return SeedImportResult{};
  auto collect = [reader = std::move(reader), country]() mutable {
    return std::make_shared<const StorefrontSeed>(collectSeed(std::move(reader), country));
  };
  std::shared_ptr<const StorefrontSeed> seed;
  {
    // It keeps what it brought as long as it is there itself.
    Task<std::shared_ptr<const StorefrontSeed>> collecting = onWorker(std::move(collect), stop);
    seed = co_await collecting;
  }
  SeedImportResult result = co_await keep(std::move(seed), std::move(stop), std::move(call));
  keepSetting(std::string(kPriceSeedImportedStamp.key), stamp);
  co_return result;
}

Task<SeedImportResult> PriceSeedService::keep(std::shared_ptr<const StorefrontSeed> seed,
                                              StopToken stop, SeedImportCall call) {
  SeedImportResult result;
  for (std::size_t first = 0; first < seed->apps.size(); first += kAppsAtOnce) {
    if (stop.stopRequested()) throw cancelledError();
    if (call.progress) call.progress({seed->country, first, seed->apps.size()});
    const SeedPiece piece{seed, first, std::min(kAppsAtOnce, seed->apps.size() - first)};
    const SeededPiece added = co_await store_.change(importSeedPiece, piece);
    result.appsSeeded += added.apps;
    result.pointsInserted += added.points;
  }
  const Instant now = clock_.now();
  co_await store_.change(finishSeedImport, seed->country, seed->stamp, now);
  result.storefronts = 1;
  // To let go of some hundred thousand texts would hold the event loop.
  auto letGo = [seed = std::move(seed)]() mutable { seed.reset(); };
  Task<> going = onWorker(std::move(letGo), stop);
  co_await going;
  co_return result;
}

}  // namespace quillet
