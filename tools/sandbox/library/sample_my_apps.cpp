// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

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

/// What a scan found of an app; every fifth is a version behind the store's.
OwnedApp scanned(const MetApp& app, std::chrono::sys_days today) {
  Random random(mixed(static_cast<std::uint64_t>(app.sketch.id), 43));
  const Instant added = today - days(random.between(3, 700)) + 20h;
  OwnedApp row = ownedAppOf(app.record, sourceOf(app, added), OwnedSource::scanned);
  const std::string current = app.record.version.value_or("1.0");
  row.installedVersion = random.oneIn(5) ? versionBefore(current) : current;
  row.installedPath = "/Applications/" + app.record.trackName + ".app";
  row.installedSizeBytes = sizeInBytes(app.record);
  row.lastScannedAt = Instant(today) - 3h;
  return row;
}

OwnedApp addedByHand(const MetApp& app, std::chrono::sys_days today) {
  Random random(mixed(static_cast<std::uint64_t>(app.sketch.id), 44));
  const Instant added = today - days(random.between(3, 700)) + 21h;
  return ownedAppOf(app.record, sourceOf(app, added), OwnedSource::manual);
}

bool isForMacAlone(const AppSketch& app) { return app.machines.mac && !app.machines.ios(); }
bool isForIosAlone(const AppSketch& app) { return !app.machines.mac && app.usCents > 0; }

}  // namespace

void writeMyApps(WriteTransaction& library, const SampleStore& store) {
  const auto add = [&](const std::vector<MetApp>& apps, auto make) {
    for (const MetApp& app : apps) {
      addOwnedApps(library, {make(app, store.today())});
      refreshCachedApps(library, {cachedAppOf(app.record, sourceOf(app, store.today()))});
    }
  };
  add(bestMet(store, Storefront::us, Shelf::mac, 100, isForMacAlone), scanned);
  add(bestMet(store, Storefront::us, Shelf::iphone, 20, isForIosAlone), addedByHand);
}

}  // namespace quillet::sandbox
