// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <optional>
#include <string>
#include <vector>

#include "analysis/filter_match.h"
#include "base/cpu_architectures.h"
#include "library/removed_rows.h"
#include "store/records/itunes_app.h"
#include "store/records/platform.h"

namespace quillet {

/// What the user decides about an app in My Apps.
struct OwnedDetails {
  std::optional<double> priceWhenAdded;  ///< shown as the price paid
  std::optional<std::string> currency;
  std::optional<std::string> trackViewUrl;
  std::optional<std::string> skippedVersion;

  friend bool operator==(const OwnedDetails&, const OwnedDetails&) = default;
};

struct OwnedEdit {
  AppKey app;
  OwnedDetails details;

  friend bool operator==(const OwnedEdit&, const OwnedEdit&) = default;
};

/// What the store says of an app; what is absent it does not say.
struct StoreVersion {
  AppKey app;
  std::optional<std::string> version;
  std::optional<std::string> primaryGenreName;
  std::optional<bool> isUnavailable;  ///< of the build that is owned
  Instant askedAt{};
};

/// An app as it lies on a disk, whichever it is in the store.
struct InstalledCopy {
  std::optional<std::string> bundleId;
  std::optional<std::int64_t> trackId;
  Platform platform = Platform::mac;  ///< of its build
  std::optional<std::string> version;
  std::optional<std::string> path;
  std::optional<std::int64_t> sizeBytes;
  CpuArchitectures architectures;
  Instant scannedAt{};
};

/// By name, letter case aside.
[[nodiscard]] std::vector<OwnedApp> ownedApps(SQLite::Database& database);
[[nodiscard]] std::vector<OwnedApp> ownedAppsOf(SQLite::Database& database,
                                                const std::vector<AppKey>& apps);

/// Of all of them, in any storefront.
[[nodiscard]] TrackIds ownedTrackIds(SQLite::Database& database);

/// Adds those apps that are not there yet, and returns their keys.
std::vector<AppKey> addOwnedApps(WriteTransaction& transaction, const std::vector<OwnedApp>& apps);

/// Notes of apps that scans have brought in what of them is installed where; a size that is absent
/// stays as it was. A copy that says nothing of itself is only noted as being still where it was.
/// Returns for each copy the keys of its app in My Apps, in whatever storefront; those that were
/// added by hand are among them, and stay as they are.
std::vector<std::vector<AppKey>> recordCopies(WriteTransaction& transaction,
                                              const std::vector<InstalledCopy>& copies);

/// The keys alone, as recordCopies() returns them.
[[nodiscard]] std::vector<std::vector<AppKey>> keysOfCopies(
    SQLite::Database& database, const std::vector<InstalledCopy>& copies);

/// Takes in what a scan found: adds what is new, and notes of the others what is installed where.
/// Apps that the scan did not find, or that were added by hand, stay as they are. Returns the keys
/// of the new ones.
std::vector<AppKey> recordScan(WriteTransaction& transaction, const std::vector<OwnedApp>& found);

/// Sets the details of owned apps; returns the edits that undo it. Others are passed over.
std::vector<OwnedEdit> editOwnedApps(WriteTransaction& transaction,
                                     const std::vector<OwnedEdit>& edits);

/// Whether the update that the store has of an app is one that the user wants to see.
enum class SkipUpdates { skip, heed };

/// Of owned apps: skips the version that the store has now, where it is known, or none. Returns
/// the edits that undo it; those where nothing changes are passed over.
std::vector<OwnedEdit> skipUpdates(WriteTransaction& transaction, const std::vector<AppKey>& apps,
                                   SkipUpdates what);

/// Writes what the store offers; what is absent stays as it was, and unknown apps are passed over.
void recordStoreVersions(WriteTransaction& transaction, const std::vector<StoreVersion>& versions);

/// The same of records that a storefront answered with when it was asked for these apps, as far as
/// they tell of the builds that are owned: an iPhone app's says nothing of a Mac app.
void recordStoreAnswer(WriteTransaction& transaction, const std::vector<AppKey>& asked,
                       const std::vector<ITunesApp>& found, Instant when);

/// The apps that no storefront was asked for since `then`; clocks may have been set back. Those
/// that were asked for longest ago come first.
[[nodiscard]] std::vector<OwnedApp> ownedAppsToCheck(SQLite::Database& database, Instant then,
                                                     Instant now);

RemovedRows removeOwnedApps(WriteTransaction& transaction, const std::vector<AppKey>& apps);

}  // namespace quillet
