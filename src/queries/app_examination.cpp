// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "queries/app_examination.h"

#include <algorithm>
#include <span>

#include "analysis/catalog_facts.h"
#include "analysis/monetization.h"
#include "net/all_of.h"
#include "queries/either_stop.h"

namespace quillet {

namespace {

bool filtersRatings(const AppFilters& filters) {
  return filters.minRating > 0 || filters.minRatingCount >= 1;
}

bool sortsByRatings(SortOrder sort) {
  return sort == SortOrder::rating || sort == SortOrder::popularity;
}

bool passes(const ITunesApp& app, const AppFilters& filters, const ExaminationCriteria& criteria) {
  return matches(app, filters, criteria.ownedTrackIds, criteria.now, criteria.timeZone);
}

/// An app of a list that the catalog is asked about.
struct Subject {
  ITunesApp* app = nullptr;
  std::size_t position = 0;  ///< in the list
  std::size_t unread = 0;    ///< requests under way that bring something of it
};
using Subjects = std::vector<Subject*>;

Subjects subjectsWhere(const Subjects& subjects, bool (*predicate)(const ITunesApp&)) {
  Subjects result;
  std::copy_if(subjects.begin(), subjects.end(), std::back_inserter(result),
               [&](const Subject* subject) { return predicate(*subject->app); });
  return result;
}

bool isMobileApp(const ITunesApp& app) { return !isMacApp(app); }

std::vector<std::int64_t> idsOf(const Subjects& subjects) {
  std::vector<std::int64_t> ids;
  for (const Subject* subject : subjects) ids.push_back(subject->app->trackId);
  return ids;
}

/// What all requests of one question share.
struct Reading {
  std::string storefront;
  CatalogClient* catalog = nullptr;
  QueryCall call;
  std::function<void()> batchRead;  ///< empty where nobody waits for single ones
  std::size_t asked = 0;
  std::size_t read = 0;

  void report() const { call.report({QueryStage::catalog, read, asked}); }

  void finish(const Subjects& batch) {
    for (Subject* subject : batch) --subject->unread;
    ++read;
    report();
    if (batchRead) batchRead();
  }
};

/// Only the records of `batch` are meant: one ID may stand in a list as a Mac app and as an iPhone
/// app, and what they sell differs.
Task<> readPurchases(Reading* reading, Subjects batch, Platform platform) {
  const auto sold = co_await reading->catalog->purchases(idsOf(batch), reading->storefront,
                                                         platform, reading->call.context);
  for (Subject* subject : batch) {
    const auto found = sold.find(subject->app->trackId);
    if (found != sold.end()) setPurchaseFlags(*subject->app, found->second);
  }
  reading->finish(batch);
}

Task<> readMacPurchases(Reading* reading, Subjects batch) {
  return readPurchases(reading, std::move(batch), Platform::mac);
}

Task<> readMobilePurchases(Reading* reading, Subjects batch) {
  return readPurchases(reading, std::move(batch), Platform::iphone);
}

Task<> readPlatformFacts(Reading* reading, Subjects batch) {
  const auto facts = co_await reading->catalog->platformAttributes(
      idsOf(batch), reading->storefront, reading->call.context);
  for (Subject* subject : batch) {
    const auto found = facts.find(subject->app->trackId);
    if (found != facts.end()) setPlatformFacts(*subject->app, found->second);
  }
  reading->finish(batch);
}

/// A request for some apps, to be sent.
struct Batch {
  Task<> (*read)(Reading*, Subjects) = nullptr;
  Subjects subjects;
};

void addBatches(std::vector<Batch>& batches, Task<> (*read)(Reading*, Subjects),
                const Subjects& subjects) {
  for (std::size_t first = 0; first < subjects.size(); first += kCatalogBatch) {
    const std::size_t count = std::min(kCatalogBatch, subjects.size() - first);
    const auto begin = subjects.begin() + static_cast<std::ptrdiff_t>(first);
    batches.push_back({read, Subjects(begin, begin + static_cast<std::ptrdiff_t>(count))});
  }
}

std::vector<Batch> batchesFor(CatalogNeeds needs, const Subjects& subjects) {
  std::vector<Batch> batches;
  if (needs.purchases) {
    addBatches(batches, readMacPurchases, subjectsWhere(subjects, isMacApp));
    addBatches(batches, readMobilePurchases, subjectsWhere(subjects, isMobileApp));
  }
  if (needs.build || needs.ratings) {
    addBatches(batches, readPlatformFacts,
               subjectsWhere(subjects, needs.build ? isMacApp : hasUnknownRating));
  }
  return batches;
}

/// Sends all requests at once. They are counted beforehand, for one may be answered while the next
/// one is made.
Task<> readAll(Reading* reading, CatalogNeeds needs, Subjects subjects) {
  std::vector<Batch> batches = batchesFor(needs, subjects);
  if (batches.empty()) co_return;
  for (const Batch& batch : batches) {
    for (Subject* subject : batch.subjects) ++subject->unread;
  }
  reading->asked += batches.size();
  reading->report();
  std::vector<Task<>> tasks;
  for (Batch& batch : batches) tasks.push_back(batch.read(reading, std::move(batch.subjects)));
  co_await allOf(std::move(tasks));
}

/// Those that pass the filters that records alone can answer.
std::vector<Subject> candidatesIn(std::vector<ITunesApp>& apps,
                                  const ExaminationCriteria& criteria) {
  AppFilters rated = criteria.filters;
  rated.purchases = PurchaseFilter::any;
  rated.architecture = ArchitectureFilter::any;
  // Where the ratings are unknown, filters on them wait as well.
  AppFilters unrated = rated;
  unrated.minRating = 0;
  unrated.minRatingCount = 0;
  const bool isMacOnly = readsArchitecture(criteria.filters);
  std::vector<Subject> candidates;
  for (std::size_t i = 0; i < apps.size(); ++i) {
    if (isMacOnly && !isMacApp(apps[i])) continue;
    const AppFilters& filters = hasUnknownRating(apps[i]) ? unrated : rated;
    if (passes(apps[i], filters, criteria)) candidates.push_back({&apps[i], i});
  }
  return candidates;
}

/// How many of `left` candidates must be read whatever the catalog says: fewer cannot fill
/// `wanted` places. Whole batches, for asking for 50 costs no more than asking for one.
std::size_t surelyRead(std::size_t wanted, std::size_t left) {
  const std::size_t batches = (wanted + kCatalogBatch - 1) / kCatalogBatch;
  return std::min(batches * kCatalogBatch, left);
}

/// An examination under way.
struct Examination {
  std::vector<ITunesApp> apps;
  ExaminationCriteria criteria;
  RowWatch watch;
  std::vector<Subject> candidates;
  std::size_t asked = 0;   ///< candidates that need not be read, or whose requests are under way
  std::size_t judged = 0;  ///< candidates, from the first on
  Subjects kept;

  [[nodiscard]] bool isFull() const { return kept.size() == criteria.limit; }
  [[nodiscard]] bool isAtEnd() const {
    return isFull() || judged == candidates.size() || watch.enough.stopRequested();
  }

  /// Judges the candidates of which everything was read, up to the first one that waits.
  void judge() {
    for (; judged < asked && !isFull() && candidates[judged].unread == 0; ++judged) {
      Subject& candidate = candidates[judged];
      if (!passes(*candidate.app, criteria.filters, criteria)) continue;
      kept.push_back(&candidate);
      if (watch.found) watch.found(*candidate.app, candidate.position);
    }
  }

  /// The next candidates to read.
  Subjects nextGroup() {
    const std::size_t count = surelyRead(criteria.limit - kept.size(), candidates.size() - judged);
    Subjects group;
    for (; asked < judged + count; ++asked) group.push_back(&candidates[asked]);
    return group;
  }

  [[nodiscard]] std::size_t scanned() const {
    if (isFull()) return kept.back()->position + 1;
    return judged == candidates.size() ? apps.size() : candidates[judged].position;
  }

  Examined take() {
    Examined result;
    result.scanned = scanned();
    for (const Subject* subject : kept) {
      result.apps.push_back(std::move(*subject->app));
      result.positions.push_back(subject->position);
    }
    if (kept.empty()) result.none = std::move(apps);
    return result;
  }
};

/// `examination` and `reading` live until the task has ended.
Task<> run(Examination* examination, Reading* reading) {
  const ExaminationCriteria& criteria = examination->criteria;
  const CatalogNeeds needs = catalogNeedsOf(criteria.filters, SortOrder::relevance);
  while (!examination->isAtEnd()) {
    co_await readAll(reading, needs, examination->nextGroup());
    examination->judge();
  }
  if (sortsByRatings(criteria.sort)) {
    co_await readAll(reading, {.ratings = true}, examination->kept);
  }
}

}  // namespace

CatalogNeeds catalogNeedsOf(const AppFilters& filters, SortOrder sort) {
  return {.purchases = readsPurchases(filters),
          .build = readsArchitecture(filters),
          .ratings = filtersRatings(filters) || sortsByRatings(sort)};
}

Task<std::vector<ITunesApp>> readCatalogFacts(std::vector<ITunesApp> apps, CatalogNeeds needs,
                                              std::string storefront, QueryServices services,
                                              QueryCall call) {
  Reading reading{std::move(storefront), &services.catalog, std::move(call), {}};
  std::vector<Subject> all;
  for (ITunesApp& app : apps) all.push_back({&app});
  Subjects subjects;
  for (Subject& subject : all) subjects.push_back(&subject);
  co_await readAll(&reading, needs, std::move(subjects));
  co_return apps;
}

Task<Examined> examine(std::vector<ITunesApp> apps, ExaminationCriteria criteria,
                       QueryServices services, QueryCall call, RowWatch watch) {
  const StopToken stop = call.context.stop;
  const EitherStop either(stop, watch.enough);
  call.context.stop = either.token();
  Examination examination{std::move(apps), std::move(criteria), std::move(watch), {}};
  examination.candidates = candidatesIn(examination.apps, examination.criteria);
  Reading reading{examination.criteria.storefront, &services.catalog, std::move(call),
                  [&] { examination.judge(); }};
  try {
    co_await run(&examination, &reading);
  } catch (...) {
    if (stop.stopRequested() || !examination.watch.enough.stopRequested()) throw;
  }
  co_return examination.take();
}

}  // namespace quillet
