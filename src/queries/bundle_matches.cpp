// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "queries/bundle_matches.h"

#include <algorithm>
#include <map>
#include <set>

#include "analysis/app_build.h"
#include "base/errors.h"
#include "base/text.h"
#include "store/records/itunes_error.h"

namespace quillet {

namespace {

// The store gives out none that are longer; a hundred of these still fit into an address.
constexpr std::size_t kLongestBundleId = 155;

using Records = std::vector<ITunesApp>;

/// Whether the store can be asked for it: a comma would begin another one.
bool canBeAskedFor(const std::string& bundleId) {
  constexpr std::string_view kOfIds =
      "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789.-_";
  return !bundleId.empty() && bundleId.size() <= kLongestBundleId &&
         bundleId.find_first_not_of(kOfIds) == std::string::npos;
}

/// What of the bundles is asked for, each once.
struct Wanted {
  std::vector<std::int64_t> trackIds;
  std::vector<std::string> bundleIds;
};

Wanted wantedOf(const std::vector<BundleIdentity>& bundles) {
  std::set<std::int64_t> trackIds;
  std::map<std::string, std::string> bundleIds;
  for (const BundleIdentity& each : bundles) {
    if (each.trackId) {
      trackIds.insert(*each.trackId);
    } else if (each.bundleId && canBeAskedFor(*each.bundleId)) {
      bundleIds.emplace(lowerAscii(*each.bundleId), *each.bundleId);
    }
  }
  Wanted wanted{{trackIds.begin(), trackIds.end()}, {}};
  for (auto& [folded, id] : bundleIds) wanted.bundleIds.push_back(std::move(id));
  return wanted;
}

bool isOf(const ITunesApp& record, const BundleIdentity& bundle) {
  if (bundle.trackId) return record.trackId == *bundle.trackId;
  return record.bundleId && bundle.bundleId &&
         lowerAscii(*record.bundleId) == lowerAscii(*bundle.bundleId);
}

/// The record of the installed build, else one of the other.
BundleMatch matchOf(const BundleIdentity& bundle, const Records& records) {
  if (!bundle.trackId && !bundle.bundleId) return {};
  BundleMatch match{MatchKind::notInStorefront, {}, {}};
  for (const ITunesApp& record : records) {
    if (!isOf(record, bundle)) continue;
    const bool isOwn = describesBuild(record, bundle.platform);
    if (match.record && !isOwn) continue;
    match = {MatchKind::found, record, isOwn ? record.version : std::nullopt};
    if (isOwn) break;
  }
  return match;
}

/// Whether the record says nothing of the Mac app that is installed.
bool isUnsettled(const BundleIdentity& bundle, const BundleMatch& match) {
  return match.record && bundle.platform == Platform::mac && !isMacApp(*match.record);
}

void settle(BundleMatch& match, const std::map<std::int64_t, AppEnrichment>& builds) {
  const auto build = builds.find(match.record->trackId);
  if (build == builds.end()) return;
  if (!knowsBuild(build->second, Platform::mac)) {
    match = {MatchKind::otherBuildAlone, {}, {}};
  } else if (!build->second.versions.empty() && !build->second.versions.front().version.empty()) {
    match.version = build->second.versions.front().version;
  }
}

/// Empty where the catalog does not answer.
Task<std::map<std::int64_t, AppEnrichment>> readBuilds(std::vector<std::int64_t> ids,
                                                       std::string country, QueryServices services,
                                                       QueryCall call) {
  std::map<std::int64_t, AppEnrichment> builds;
  try {
    builds = co_await services.catalog.macBuilds(std::move(ids), std::move(country), call.context);
  } catch (const ITunesError&) {
    builds.clear();
  } catch (const NetworkError& error) {
    if (error.kind() == NetworkError::Kind::cancelled) throw;
  } catch (const DecodingError&) {
    builds.clear();
  }
  co_return builds;
}

}  // namespace

Task<std::vector<BundleMatch>> matchBundles(std::vector<BundleIdentity> bundles,
                                            std::string country, QueryServices services,
                                            QueryCall call) {
  const Wanted wanted = wantedOf(bundles);
  Records records = co_await services.itunes.lookup(wanted.trackIds, country, call.context);
  for (std::size_t first = 0; first < wanted.bundleIds.size(); first += kLookupBatch) {
    const auto from = wanted.bundleIds.begin() + static_cast<std::ptrdiff_t>(first);
    const std::size_t count = std::min(kLookupBatch, wanted.bundleIds.size() - first);
    std::vector<std::string> some(from, from + static_cast<std::ptrdiff_t>(count));
    Records found = co_await services.itunes.lookupBundles(std::move(some), country, call.context);
    std::ranges::move(found, std::back_inserter(records));
  }
  std::vector<BundleMatch> matches;
  std::set<std::int64_t> unsettled;
  for (const BundleIdentity& each : bundles) {
    matches.push_back(matchOf(each, records));
    if (isUnsettled(each, matches.back())) unsettled.insert(matches.back().record->trackId);
  }
  if (unsettled.empty()) co_return matches;
  std::vector<std::int64_t> ids(unsettled.begin(), unsettled.end());
  const auto builds = co_await readBuilds(std::move(ids), std::move(country), services, call);
  for (std::size_t i = 0; i < bundles.size(); ++i) {
    if (isUnsettled(bundles[i], matches[i])) settle(matches[i], builds);
  }
  co_return matches;
}

}  // namespace quillet
