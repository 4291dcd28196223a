// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <exception>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "library/owned_apps.h"
#include "library/write_transaction.h"
#include "queries/bundle_matches.h"
#include "scan/application_scan.h"

namespace quillet {

/// What became of a bundle that a scan has found.
enum class FoundAs {
  added,    ///< it is new in My Apps
  known,    ///< My Apps had it
  offered,  ///< the store has an app of its ID, but did not put it there: the user decides
  notInStorefront,
  otherBuildAlone,  ///< the store has that ID for the iPhone alone
  noIdentifier,
  unreadable,  ///< what it says of itself cannot be read
  notAsked,    ///< the store did not answer, or the user stopped before
  ignored,     ///< as the user wishes
};

struct FoundApp {
  InstalledBundle bundle;
  FoundAs as = FoundAs::notAsked;
  std::vector<AppKey> keys = {};  ///< in My Apps
  std::optional<OwnedApp> row;    ///< as it is, or may be, added; absent where there is no match
};

/// Bundles that are taken in together.
struct FoundBatch {
  std::vector<FoundApp> apps;
  std::vector<BundleMatch> matches;  ///< of the same; empty where the store was not asked
  std::string country;               ///< the storefront that was asked
  Instant when{};
  /// What is new goes into My Apps at once, and what is there is noted as it is installed.
  bool addsFound = true;
  /// Bundle IDs in lower case that do not, but are offered.
  std::set<std::string> foundBefore = {};
};

/// In lower case; the store's, where the bundle names none.
[[nodiscard]] std::optional<std::string> bundleIdOf(const FoundApp& found);

/// What the store is asked of a bundle.
[[nodiscard]] BundleIdentity identityOf(const InstalledBundle& bundle);
/// As it is noted of an app that is there.
[[nodiscard]] InstalledCopy copyOf(const InstalledBundle& bundle, Instant when);
/// The row of an app that the user, or the store's receipt, says the bundle is.
[[nodiscard]] OwnedApp scannedAppOf(const InstalledBundle& bundle, const BundleMatch& match,
                                    const std::string& country, Instant when);

/// Writes a batch, and says of each bundle what became of it.
std::vector<FoundApp> recordFound(WriteTransaction& transaction, FoundBatch batch);

}  // namespace quillet
