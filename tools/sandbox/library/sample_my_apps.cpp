// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "base/enum_index.h"
#include "library/cached_apps.h"
#include "library/owned_apps.h"
#include "sandbox/library/sample_lists.h"
#include "sandbox/library/sample_source.h"
#include "sandbox/random.h"
#include "sandbox/version_history.h"

namespace quillet::sandbox {

namespace {

using namespace std::chrono_literals;
using std::chrono::days;

constexpr std::size_t kBehind = 14;  // of so many that a scan found, one is behind the store

/// What a scan found of an app.
OwnedApp scanned(const MetApp& app, bool isBehind, Instant now) {
  const auto today = std::chrono::floor<days>(now);
  Random random(mixed(static_cast<std::uint64_t>(app.sketch.id), 43));
  const Instant added = today - days(random.between(3, 700)) + 20h;
  OwnedApp row = ownedAppOf(app.record, sourceOf(app, added), OwnedSource::scanned);
  const std::string current = app.record.version.value_or("1.0");
  row.installedVersion = isBehind ? versionBefore(current) : current;
  row.installedPath = "/Applications/" + app.record.trackName + ".app";
  row.installedSizeBytes = sizeInBytes(app.record);
  row.lastScannedAt = now - 3h;
  return row;
}

OwnedApp addedByHand(const MetApp& app, Instant now) {
  const auto today = std::chrono::floor<days>(now);
  Random random(mixed(static_cast<std::uint64_t>(app.sketch.id), 44));
  const Instant added = today - days(random.between(3, 700)) + 21h;
  return ownedAppOf(app.record, sourceOf(app, added), OwnedSource::manual);
}

bool isForMacAlone(const AppSketch& app) { return app.machines.mac && !app.machines.ios(); }
bool isForIosAlone(const AppSketch& app) { return !app.machines.mac && app.usCents > 0; }

}  // namespace

void writeMyApps(WriteTransaction& library, const SampleStore& store, Instant now) {
  const auto add = [&](const MetApp& app, OwnedApp row) {
    row.isUnavailable = !app.sketch.storefronts.test(indexOf(app.storefront));
    row.lastCheckedAt = now - 2h;
    addOwnedApps(library, {row});
    refreshCachedApps(library, {cachedAppOf(app.described, sourceOf(app, now - 2h))});
  };
  std::size_t number = 0;
  for (const MetApp& app : bestMet(store, Storefront::us, Shelf::mac, 100, isForMacAlone))
    add(app, scanned(app, number++ % kBehind == kBehind / 2, now));
  for (const MetApp& app : bestMet(store, Storefront::us, Shelf::iphone, 20, isForIosAlone))
    add(app, addedByHand(app, now));
}

}  // namespace quillet::sandbox
