// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "queries/app_comparison.h"

#include <algorithm>
#include <map>

#include "analysis/catalog_facts.h"
#include "analysis/monetization.h"
#include "net/all_of.h"
#include "store/records/itunes_error.h"

namespace quillet {

namespace {

using Ids = std::vector<std::int64_t>;

constexpr int kTooManyRequests = 429;

/// What the catalog's readings of one question share. It lives in the frame of readAppComparison(),
/// which awaits all.
struct Round {
  std::string country;
  QueryServices services;
  QueryCall call;
  AppComparison result;
  std::size_t done = 0;  ///< apps whose purchases were asked for

  void report() const { call.report({QueryStage::purchases, done, result.apps.size()}); }
};

/// The records in the order of the IDs; of an ID that two apps share, the first.
AppComparison inOrderOf(const Ids& ids, const std::vector<ITunesApp>& found) {
  AppComparison result;
  for (const std::int64_t id : ids) {
    const auto app = std::ranges::find(found, id, &ITunesApp::trackId);
    if (app == found.end()) {
      result.missing.push_back(id);
    } else {
      result.apps.push_back({*app, {}});
    }
  }
  return result;
}

bool isMobileApp(const ITunesApp& app) { return !isMacApp(app); }
bool isUnratedMacApp(const ITunesApp& app) { return isMacApp(app) && hasUnknownRating(app); }

Ids idsOf(const AppComparison& comparison, bool (*isMeant)(const ITunesApp&)) {
  Ids ids;
  for (const ComparedApp& each : comparison.apps) {
    if (isMeant(each.app)) ids.push_back(each.app.trackId);
  }
  return ids;
}

PurchaseCheck checkThatFailed(const std::exception_ptr& failure) {
  try {
    std::rethrow_exception(failure);
  } catch (const ITunesError& error) {
    if (error.status() == kTooManyRequests) return PurchaseCheck::rateLimited;
  } catch (...) {
    return PurchaseCheck::failed;
  }
  return PurchaseCheck::failed;
}

/// Keeps a rate limit, else the first failure of all; says of each app among `ids` what became of
/// its purchases.
void noteFailure(Round& round, const Ids& ids) {
  const auto failure = std::current_exception();
  const PurchaseCheck check = checkThatFailed(failure);
  if (!round.result.catalogFailure || check == PurchaseCheck::rateLimited) {
    round.result.catalogFailure = failure;
  }
  for (ComparedApp& each : round.result.apps) {
    if (std::ranges::find(ids, each.app.trackId) == ids.end()) continue;
    each.sold = {check, {}, failure};
  }
}

Task<> readPurchases(Round* round, Platform platform, bool (*isMeant)(const ITunesApp&)) {
  const Ids ids = idsOf(round->result, isMeant);
  if (ids.empty()) co_return;
  try {
    auto sold = co_await round->services.catalog.purchases(ids, round->country, platform,
                                                           round->call.context);
    for (ComparedApp& each : round->result.apps) {
      const auto known = sold.find(each.app.trackId);
      if (known == sold.end()) continue;
      each.sold = {PurchaseCheck::done, std::move(known->second), {}};
      setPurchaseFlags(each.app, each.sold.purchases);
    }
  } catch (...) {
    noteFailure(*round, ids);
  }
  round->done += ids.size();
  round->report();
}

/// The search service does not know the ratings of Mac apps; without the catalog's they stay
/// unknown.
Task<> readRatings(Round* round) {
  const Ids ids = idsOf(round->result, isUnratedMacApp);
  if (ids.empty()) co_return;
  try {
    const auto facts = co_await round->services.catalog.platformAttributes(ids, round->country,
                                                                           round->call.context);
    for (ComparedApp& each : round->result.apps) {
      const auto known = facts.find(each.app.trackId);
      if (known != facts.end() && isMacApp(each.app)) setPlatformFacts(each.app, known->second);
    }
  } catch (...) {
    noteFailure(*round, {});
  }
}

}  // namespace

SubscriptionCost subscriptionCost(const ComparedApp& compared) {
  if (compared.sold.check != PurchaseCheck::done) return {};
  return subscriptionCost(compared.app, compared.sold.purchases);
}

std::optional<double> firstYearCost(const ComparedApp& compared) {
  if (compared.sold.check != PurchaseCheck::done) return {};
  return firstYearCost(compared.app, compared.sold.purchases);
}

std::optional<CostOfUse> costOfUse(const ComparedApp& compared, int years) {
  if (compared.sold.check != PurchaseCheck::done) return {};
  return costOfUse(compared.app, compared.sold.purchases, years);
}

Task<AppComparison> readAppComparison(std::vector<std::int64_t> trackIds, std::string country,
                                      QueryServices services, QueryCall call) {
  call.report({QueryStage::apps});
  const std::vector<ITunesApp> found =
      co_await services.itunes.lookup(trackIds, country, call.context);
  Round round{std::move(country), services, std::move(call), inOrderOf(trackIds, found)};
  if (round.result.apps.empty()) co_return std::move(round.result);
  round.report();
  std::vector<Task<>> reading;
  reading.push_back(readPurchases(&round, Platform::mac, isMacApp));
  reading.push_back(readPurchases(&round, Platform::iphone, isMobileApp));
  reading.push_back(readRatings(&round));
  co_await allOf(std::move(reading));
  const std::exception_ptr& failure = round.result.catalogFailure;
  if (failure && round.call.context.stop.stopRequested()) std::rethrow_exception(failure);
  co_return std::move(round.result);
}

}  // namespace quillet
