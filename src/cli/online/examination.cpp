// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "cli/online/examination.h"

#include <fmt/format.h>

#include "analysis/catalog_facts.h"
#include "analysis/monetization.h"
#include "net/all_of.h"

namespace quillet {

namespace {

using Ids = std::vector<std::int64_t>;
using Positions = std::span<const std::size_t>;

bool filtersRatings(const AppFilters& filters) {
  return filters.minRating > 0 || filters.minRatingCount >= 1;
}

bool sortsByRatings(SortOrder sort) {
  return sort == SortOrder::rating || sort == SortOrder::popularity;
}

bool passes(const ITunesApp& app, const AppFilters& filters, const ExaminationCriteria& criteria) {
  return matches(app, filters, criteria.ownedTrackIds, criteria.now, criteria.timeZone);
}

/// Those that pass the filters that records alone can answer.
std::vector<std::size_t> candidatesIn(const std::vector<ITunesApp>& apps,
                                      const ExaminationCriteria& criteria) {
  AppFilters rated = criteria.filters;
  rated.purchases = PurchaseFilter::any;
  rated.architecture = ArchitectureFilter::any;
  // Where the ratings are unknown, filters on them wait as well.
  AppFilters unrated = rated;
  unrated.minRating = 0;
  unrated.minRatingCount = 0;
  const bool isMacOnly = readsArchitecture(criteria.filters);
  std::vector<std::size_t> candidates;
  for (std::size_t i = 0; i < apps.size(); ++i) {
    if (isMacOnly && !isMacApp(apps[i])) continue;
    const AppFilters& filters = hasUnknownRating(apps[i]) ? unrated : rated;
    if (passes(apps[i], filters, criteria)) candidates.push_back(i);
  }
  return candidates;
}

/// Requests to the catalog, as people who wait for them are told.
struct BatchCount {
  Progress progress;
  std::size_t asked = 0;
  std::size_t read = 0;

  void add(std::size_t count) {
    asked += count;
    report();
  }
  void batchRead() {
    ++read;
    report();
  }
  void report() const {
    if (asked == 0) return;
    progress.report(fmt::format("Reading the catalog: {} of {} batches", read, asked));
  }
};

/// What the catalog is asked, and for which list.
struct Reading {
  std::vector<ITunesApp>* apps;
  std::string storefront;
  CatalogClient* catalog;
  BatchCount* batches;
};

Ids idsAt(const std::vector<ITunesApp>& apps, Positions positions) {
  Ids ids;
  for (const std::size_t position : positions) ids.push_back(apps[position].trackId);
  return ids;
}

/// Only the records at `positions` are meant: one ID may stand in a list as a Mac app and as an
/// iPhone app, and what they sell differs.
Task<> readPurchases(Reading reading, Positions positions, Platform platform) {
  const auto sold = co_await reading.catalog->purchases(
      idsAt(*reading.apps, positions), reading.storefront, platform, RequestContext{});
  reading.batches->batchRead();
  for (const std::size_t position : positions) {
    ITunesApp& app = (*reading.apps)[position];
    const auto found = sold.find(app.trackId);
    if (found != sold.end()) setPurchaseFlags(app, found->second);
  }
}

Task<> readPlatformFacts(Reading reading, Positions positions) {
  const auto facts = co_await reading.catalog->platformAttributes(
      idsAt(*reading.apps, positions), reading.storefront, RequestContext{});
  reading.batches->batchRead();
  for (const std::size_t position : positions) {
    ITunesApp& app = (*reading.apps)[position];
    const auto found = facts.find(app.trackId);
    if (found != facts.end()) setPlatformFacts(app, found->second);
  }
}

/// The positions in groups that one request can ask for.
std::vector<Positions> batchesOf(Positions positions) {
  std::vector<Positions> batches;
  for (std::size_t start = 0; start < positions.size(); start += kCatalogBatch) {
    batches.push_back(positions.subspan(start, std::min(kCatalogBatch, positions.size() - start)));
  }
  return batches;
}

template <typename Predicate>
std::vector<std::size_t> positionsWhere(const std::vector<ITunesApp>& apps, Positions positions,
                                        Predicate predicate) {
  std::vector<std::size_t> result;
  std::copy_if(positions.begin(), positions.end(), std::back_inserter(result),
               [&](std::size_t position) { return predicate(apps[position]); });
  return result;
}

Task<> readAllPurchases(Reading reading, std::vector<std::size_t> positions) {
  const auto mac = positionsWhere(*reading.apps, positions, isMacApp);
  const auto mobile = positionsWhere(*reading.apps, positions, std::not_fn(isMacApp));
  std::vector<Task<>> tasks;
  for (const Positions batch : batchesOf(mac)) {
    tasks.push_back(readPurchases(reading, batch, Platform::mac));
  }
  for (const Positions batch : batchesOf(mobile)) {
    tasks.push_back(readPurchases(reading, batch, Platform::iphone));
  }
  reading.batches->add(tasks.size());
  co_await allOf(std::move(tasks));
}

Task<> readAllPlatformFacts(Reading reading, std::vector<std::size_t> positions) {
  std::vector<Task<>> tasks;
  for (const Positions batch : batchesOf(positions)) {
    tasks.push_back(readPlatformFacts(reading, batch));
  }
  reading.batches->add(tasks.size());
  co_await allOf(std::move(tasks));
}

/// Reads what the filters need of the apps at `positions` into their records.
Task<> readFor(AppFilters filters, Reading reading, std::vector<std::size_t> positions) {
  const bool build = readsArchitecture(filters);
  const bool ratings = filtersRatings(filters);
  std::vector<Task<>> tasks;
  if (readsPurchases(filters)) tasks.push_back(readAllPurchases(reading, positions));
  if (build || ratings) {
    const auto asked = positionsWhere(*reading.apps, positions, [&](const ITunesApp& app) {
      return isMacApp(app) && (build || hasUnknownRating(app));
    });
    tasks.push_back(readAllPlatformFacts(reading, asked));
  }
  co_await allOf(std::move(tasks));
}

/// How many of `left` candidates must be read whatever the catalog says: fewer cannot fill
/// `wanted` places. Whole batches, for asking for 50 costs no more than asking for one.
std::size_t surelyRead(std::size_t wanted, std::size_t left) {
  const std::size_t batches = (wanted + kCatalogBatch - 1) / kCatalogBatch;
  return std::min(batches * kCatalogBatch, left);
}

/// Adds those of a group of positions that pass, until the limit is reached.
void keepMatches(std::vector<std::size_t>& kept, Positions group,
                 const std::vector<ITunesApp>& apps, const ExaminationCriteria& criteria) {
  for (const std::size_t position : group) {
    if (kept.size() == criteria.limit) return;
    if (passes(apps[position], criteria.filters, criteria)) kept.push_back(position);
  }
}

Examined resultOf(std::vector<ITunesApp>& apps, std::vector<std::size_t> kept, std::size_t limit) {
  Examined result;
  result.scanned = kept.size() == limit ? kept.back() + 1 : apps.size();
  for (const std::size_t position : kept) result.apps.push_back(std::move(apps[position]));
  result.positions = std::move(kept);
  return result;
}

}  // namespace

ExaminationCriteria criteriaFor(const CLIOptions& options, const CommandServices& services) {
  ExaminationCriteria criteria;
  if (options.filters.hideOwned) criteria.ownedTrackIds = services.ownedTrackIds();
  criteria.filters = options.filters;
  criteria.sort = options.sort.value_or(SortOrder::relevance);
  criteria.limit = static_cast<std::size_t>(options.limit);
  criteria.storefront = options.country;
  criteria.now = services.clock.now();
  criteria.timeZone = services.timeZone;
  criteria.progress = services.progress;
  return criteria;
}

Task<Examined> examine(std::vector<ITunesApp> apps, ExaminationCriteria criteria,
                       CatalogClient* catalog) {
  BatchCount batches{criteria.progress};
  const Reading reading{&apps, criteria.storefront, catalog, &batches};
  const std::vector<std::size_t> candidates = candidatesIn(apps, criteria);
  std::vector<std::size_t> kept;
  for (Positions left(candidates); !left.empty() && kept.size() < criteria.limit;) {
    const Positions group = left.first(surelyRead(criteria.limit - kept.size(), left.size()));
    co_await readFor(criteria.filters, reading, {group.begin(), group.end()});
    keepMatches(kept, group, apps, criteria);
    left = left.subspan(group.size());
  }
  if (sortsByRatings(criteria.sort)) {
    const auto unrated = positionsWhere(apps, kept, hasUnknownRating);
    co_await readAllPlatformFacts(reading, unrated);
  }
  co_return resultOf(apps, std::move(kept), criteria.limit);
}

}  // namespace quillet
