// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/services/found_app.h"

#include <QString>
#include <algorithm>

#include "analysis/app_build.h"
#include "base/text.h"
#include "library/cached_apps.h"
#include "library/store_rows.h"

namespace quillet {

namespace {

Platform platformOf(const InstalledBundle& bundle) {
  return bundle.kind == BundleKind::mac ? Platform::mac : Platform::iphone;
}

/// As the library keeps it; names on a disk may be anything.
std::optional<std::string> pathText(const InstalledBundle& bundle) {
  const std::string path = bundle.path.string();
  if (QString::fromStdString(path).toStdString() != path) return {};
  return path;
}

FoundAs reasonOf(const InstalledBundle& bundle, MatchKind kind) {
  switch (kind) {
    case MatchKind::notInStorefront: return FoundAs::notInStorefront;
    case MatchKind::otherBuildAlone: return FoundAs::otherBuildAlone;
    case MatchKind::found: return FoundAs::offered;
    case MatchKind::noIdentity: break;
  }
  const bool isNameless = bundle.fault && bundle.fault->kind == BundleFaultKind::noIdentifier;
  return isNameless ? FoundAs::noIdentifier : FoundAs::unreadable;
}

/// What of the batch goes to the library besides the copies.
struct Additions {
  std::vector<OwnedApp> apps;
  std::vector<StoreVersion> versions;
  std::vector<CachedApp> records;
};

/// A record of the iPhone build says nothing of a Mac app.
void addRecord(Additions& additions, const FoundApp& found, const BundleMatch& match,
               const FoundBatch& batch) {
  const Platform platform = platformOf(found.bundle);
  if (!describesBuild(*match.record, platform)) return;
  additions.records.push_back(
      cachedAppOf(*match.record, RecordSource{batch.country, platform, batch.when}));
}

/// Absent where the storefront told of another build alone.
std::optional<bool> isUnavailable(const FoundApp& found, const BundleMatch& match) {
  const bool isThere = match.version || describesBuild(*match.record, platformOf(found.bundle));
  return isThere ? std::optional(false) : std::nullopt;
}

bool isAdded(const FoundApp& found, const FoundBatch& batch) {
  if (!batch.addsFound || !found.bundle.hasReceipt) return false;
  const auto id = bundleIdOf(found);
  return !id || !batch.foundBefore.contains(*id);
}

void judge(WriteTransaction& transaction, FoundApp& found, const BundleMatch& match,
           const FoundBatch& batch, Additions& additions) {
  if (!match.record) {
    found.as = found.keys.empty() ? reasonOf(found.bundle, match.kind) : FoundAs::known;
    return;
  }
  found.row = scannedAppOf(found.bundle, match, batch.country, batch.when);
  if (found.keys.empty() && !ownedAppsOf(transaction.database, {keyOf(*found.row)}).empty())
    found.keys = {keyOf(*found.row)};
  const auto owned = ownedAppsOf(transaction.database, found.keys);
  if (!owned.empty()) found.row->skippedVersion = owned.front().skippedVersion;
  if (!found.keys.empty()) {
    found.as = FoundAs::known;
  } else if (isAdded(found, batch)) {
    found.as = FoundAs::added;
    found.keys = {keyOf(*found.row)};
    additions.apps.push_back(*found.row);
  } else {
    found.as = FoundAs::offered;
  }
  for (const AppKey& key : found.keys) {
    if (key.trackId == match.record->trackId)
      additions.versions.push_back({key, match.version, match.record->primaryGenreName,
                                    isUnavailable(found, match), batch.when});
  }
  addRecord(additions, found, match, batch);
}

}  // namespace

std::optional<std::string> bundleIdOf(const FoundApp& found) {
  const auto& id = found.row ? found.row->bundleId : found.bundle.bundleId;
  return id ? std::optional(lowerAscii(*id)) : std::nullopt;
}

BundleIdentity identityOf(const InstalledBundle& bundle) {
  return {bundle.bundleId, bundle.trackId, platformOf(bundle)};
}

InstalledCopy copyOf(const InstalledBundle& bundle, Instant when) {
  return {bundle.bundleId,  bundle.trackId,   platformOf(bundle),   bundle.version,
          pathText(bundle), bundle.sizeBytes, bundle.architectures, when};
}

OwnedApp scannedAppOf(const InstalledBundle& bundle, const BundleMatch& match,
                      const std::string& country, Instant when) {
  OwnedApp row =
      ownedAppOf(*match.record, {country, platformOf(bundle), when}, OwnedSource::scanned);
  if (bundle.bundleId) row.bundleId = bundle.bundleId;
  row.storeVersion = match.version;
  row.installedVersion = bundle.version;
  row.installedPath = pathText(bundle);
  row.installedSizeBytes = bundle.sizeBytes;
  row.architectures = wordsOf(bundle.architectures);
  row.lastScannedAt = when;
  return row;
}

std::vector<FoundApp> recordFound(WriteTransaction& transaction, FoundBatch batch) {
  std::vector<InstalledCopy> copies;
  for (const FoundApp& each : batch.apps) copies.push_back(copyOf(each.bundle, batch.when));
  const auto keys = batch.addsFound ? recordCopies(transaction, copies)
                                    : keysOfCopies(transaction.database, copies);
  Additions additions;
  for (std::size_t i = 0; i < batch.apps.size(); ++i) {
    FoundApp& found = batch.apps[i];
    found.keys = keys[i];
    if (found.as == FoundAs::ignored) continue;
    if (!batch.matches.empty()) {
      judge(transaction, found, batch.matches[i], batch, additions);
    } else if (!found.keys.empty()) {
      found.as = FoundAs::known;
    }
  }
  recordScan(transaction, additions.apps);
  recordStoreVersions(transaction, additions.versions);
  refreshCachedApps(transaction, additions.records);
  return std::move(batch.apps);
}

}  // namespace quillet
