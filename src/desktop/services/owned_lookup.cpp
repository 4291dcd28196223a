// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/services/owned_lookup.h"

#include <chrono>
#include <exception>
#include <map>
#include <utility>

#include "analysis/app_build.h"
#include "library/cached_apps.h"
#include "library/owned_apps.h"
#include "library/store_rows.h"
#include "queries/bundle_matches.h"
#include "queries/patient_asking.h"

namespace quillet {

namespace {

using namespace std::chrono_literals;

// A release that came today is early enough tomorrow.
constexpr auto kBetweenLookups = 24h;

using Apps = std::vector<OwnedApp>;

/// Those of one storefront, as many as one lookup takes.
std::vector<Apps> lookupsOf(Apps apps) {
  std::map<std::string, Apps> open;
  std::vector<Apps> lookups;
  for (OwnedApp& app : apps) {
    Apps& some = open[app.country];
    some.push_back(std::move(app));
    if (some.size() == kLookupBatch) lookups.push_back(std::exchange(some, {}));
  }
  for (auto& [country, some] : open) {
    if (!some.empty()) lookups.push_back(std::move(some));
  }
  return lookups;
}

/// An app of which the library does not know the build is asked for as it would be for a phone: of
/// those the catalog is not asked.
Platform platformOf(const OwnedApp& app) {
  return valueOf(kPlatformWords, app.platformRaw).value_or(Platform::iphone);
}

/// Of an app that is there by another build's record alone, nothing is known of its own.
std::optional<bool> isGone(const BundleMatch& match, Platform platform) {
  if (match.kind != MatchKind::found) return true;
  if (match.version || describesBuild(*match.record, platform)) return false;
  return {};
}

struct Answer {
  Apps asked;
  std::vector<BundleMatch> matches;
  Instant when{};
};

void record(WriteTransaction& transaction, const Answer& answer) {
  std::vector<StoreVersion> told;
  std::vector<CachedApp> records;
  for (std::size_t i = 0; i < answer.asked.size(); ++i) {
    const OwnedApp& app = answer.asked[i];
    const BundleMatch& match = answer.matches[i];
    const Platform platform = platformOf(app);
    StoreVersion each{keyOf(app), match.version, {}, isGone(match, platform), answer.when};
    if (match.record) each.primaryGenreName = match.record->primaryGenreName;
    told.push_back(std::move(each));
    if (match.record && describesBuild(*match.record, platform))
      records.push_back(cachedAppOf(*match.record, {app.country, platform, answer.when}));
  }
  recordStoreVersions(transaction, told);
  refreshCachedApps(transaction, records);
}

Task<Answer> answerOf(Apps apps, QueryServices services, StopToken stop) {
  std::vector<BundleIdentity> asked;
  for (const OwnedApp& app : apps) asked.push_back({{}, app.trackId, platformOf(app)});
  const auto ask = [&asked, &services, &stop, country = apps.front().country] {
    return matchBundles(asked, country, services, {{RequestClass::background, stop}});
  };
  Answer answer;
  answer.matches = co_await askPatiently(ask, &services.clock, stop);
  answer.asked = std::move(apps);
  answer.when = services.clock.now();
  co_return answer;
}

}  // namespace

Task<> OwnedLookup::look(StopToken stop) {
  if (isLooking_) co_return;
  isLooking_ = true;
  std::exception_ptr failure;
  try {
    co_await lookAll(std::move(stop));
  } catch (...) {
    failure = std::current_exception();
  }
  isLooking_ = false;
  if (failure) std::rethrow_exception(failure);
}

Task<> OwnedLookup::lookAll(StopToken stop) {
  const Instant now = services_.clock.now();
  Apps due = co_await store_.read(ownedAppsToCheck, Instant(now - kBetweenLookups), now);
  for (Apps& some : lookupsOf(std::move(due))) {
    Answer answer = co_await answerOf(std::move(some), services_, stop);
    co_await store_.change(record, std::move(answer));
  }
}

}  // namespace quillet
