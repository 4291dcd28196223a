// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/store_lists/found_apps.h"

#include <algorithm>
#include <map>
#include <utility>

#include "store/catalog_client.h"

namespace quillet {

namespace {

using Positions = std::vector<std::size_t>;

bool sortsByRatings(SortOrder sort) {
  return sort == SortOrder::rating || sort == SortOrder::popularity;
}

bool isRead(CatalogReads reads, FactKind what) {
  return what == FactKind::purchases ? reads.purchases : reads.build;
}

void copyPurchases(ITunesApp& app, const ITunesApp& told) {
  app.hasInAppPurchases = told.hasInAppPurchases;
  app.hasSubscription = told.hasSubscription;
  app.hasUnlockPurchase = told.hasUnlockPurchase;
  app.insideCost = told.insideCost;
}

void copyBuild(ITunesApp& app, const ITunesApp& told) {
  app.needsRosetta = told.needsRosetta;
  app.averageUserRating = told.averageUserRating;
  app.userRatingCount = told.userRatingCount;
  app.ratingHistogram = told.ratingHistogram;
}

/// The reading of the first of these positions, and of how many there are still to be read.
FactReading readingOf(const FoundApps& found, FactKind what, Positions unread) {
  FactReading reading{what, std::move(unread)};
  for (const CatalogReads& reads : found.reads) reading.done += isRead(reads, what) ? 1 : 0;
  reading.total = reading.done + reading.positions.size();
  reading.positions.resize(std::min(reading.positions.size(), kCatalogBatch));
  return reading;
}

/// The apps that pass or may, in the order of the sort.
struct Candidates {
  Positions positions;
  std::vector<FilterVerdict> verdicts;  ///< of each position
};

Candidates candidatesOf(const FoundApps& found, const AppFilters& filters, SortOrder sort,
                        const MatchTerms& terms, const NameOrder& nameOrder) {
  const FilterJudge judge(filters, terms);
  Candidates candidates;
  for (const std::size_t position : sortedPositions(found.apps, sort, nameOrder)) {
    const FilterVerdict verdict = judge(found.apps[position], found.reads[position]);
    if (verdict == FilterVerdict::fails) continue;
    candidates.positions.push_back(position);
    candidates.verdicts.push_back(verdict);
  }
  return candidates;
}

Positions unrated(const FoundApps& found, const Positions& candidates) {
  Positions unread;
  std::ranges::copy_if(candidates, std::back_inserter(unread), [&](std::size_t position) {
    return hasUnknownRating(found.apps[position]) && !found.reads[position].build;
  });
  return unread;
}

/// What the candidates from `first` on wait for that wait for the same as it.
FactReading readingFrom(const FoundApps& found, const Candidates& candidates, std::size_t first,
                        const AppFilters& filters) {
  const FilterVerdict wanted = candidates.verdicts[first];
  Positions unread;
  for (std::size_t i = first; i < candidates.positions.size(); ++i) {
    if (candidates.verdicts[i] == wanted) unread.push_back(candidates.positions[i]);
  }
  FactKind what = FactKind::purchases;
  if (wanted == FilterVerdict::needsBuild)
    what = readsArchitecture(filters) ? FactKind::architecture : FactKind::ratings;
  return readingOf(found, what, std::move(unread));
}

}  // namespace

FoundApps foundApps(std::vector<ITunesApp> apps, std::string country, Platform platform,
                    Instant asOf) {
  FoundApps found{
      .apps = std::move(apps),
      .reads = {},
      .country = std::move(country),
      .platform = platform,
      .asOf = asOf,
      .readsSince = asOf,
  };
  found.reads.resize(found.apps.size());
  return found;
}

void takeReads(FoundApps& later, const FoundApps& earlier) {
  using Build = std::pair<std::int64_t, bool>;
  std::map<Build, std::size_t> places;
  for (std::size_t i = 0; i < earlier.apps.size(); ++i)
    places.emplace(Build(earlier.apps[i].trackId, isMacApp(earlier.apps[i])), i);
  for (std::size_t i = 0; i < later.apps.size(); ++i) {
    ITunesApp& app = later.apps[i];
    const auto place = places.find(Build(app.trackId, isMacApp(app)));
    if (place == places.end()) continue;
    later.reads[i] = earlier.reads[place->second];
    const ITunesApp& before = earlier.apps[place->second];
    if (later.reads[i].purchases) copyPurchases(app, before);
    if (!later.reads[i].build) continue;
    // Where the store itself knows a rating it is the newer one.
    app.needsRosetta = before.needsRosetta;
    if (hasUnknownRating(app)) copyBuild(app, before);
  }
  later.readsSince = earlier.readsSince;
}

FoundRows rowsOf(const FoundApps& found, const AppFilters& filters, SortOrder sort,
                 const MatchTerms& terms, const NameOrder& nameOrder) {
  const Candidates candidates = candidatesOf(found, filters, sort, terms, nameOrder);
  FoundRows rows;
  if (sortsByRatings(sort)) {
    Positions unread = unrated(found, candidates.positions);
    rows.isOrderOpen = !unread.empty();
    if (rows.isOrderOpen) rows.next = readingOf(found, FactKind::ratings, std::move(unread));
  }
  const auto waiting = std::ranges::find_if(
      candidates.verdicts, [](FilterVerdict verdict) { return verdict != FilterVerdict::passes; });
  const auto judged = static_cast<std::size_t>(waiting - candidates.verdicts.begin());
  rows.positions.assign(candidates.positions.begin(),
                        candidates.positions.begin() + static_cast<std::ptrdiff_t>(judged));
  rows.isPartial = waiting != candidates.verdicts.end();
  if (!rows.next && rows.isPartial) rows.next = readingFrom(found, candidates, judged, filters);
  return rows;
}

std::vector<ITunesApp> askedOf(const FoundApps& found, const FactReading& reading) {
  std::vector<ITunesApp> asked;
  for (const std::size_t position : reading.positions) {
    const ITunesApp& app = found.apps[position];
    asked.push_back({.trackId = app.trackId,
                     .kind = app.kind,
                     .averageUserRating = app.averageUserRating,
                     .userRatingCount = app.userRatingCount});
  }
  return asked;
}

void takeFacts(FoundApps& found, const FactReading& reading, const std::vector<ITunesApp>& read) {
  for (std::size_t i = 0; i < reading.positions.size(); ++i) {
    ITunesApp& app = found.apps[reading.positions[i]];
    CatalogReads& reads = found.reads[reading.positions[i]];
    if (reading.what == FactKind::purchases) {
      copyPurchases(app, read[i]);
      reads.purchases = true;
    } else {
      copyBuild(app, read[i]);
      reads.build = true;
    }
  }
}

}  // namespace quillet
