// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <optional>
#include <vector>

#include "analysis/monetization.h"
#include "store/records/app_enrichment.h"
#include "store/records/itunes_app.h"

namespace quillet {

/// One app's build for a platform in one storefront, as the store's record and the catalog describe
/// it together. What lists and pages show of an app, what the library keeps of it and what a report
/// says is taken from here, so that all agree which rating counts, which build is meant and what is
/// free. What is not known is absent; a list that is there and empty is known to be empty.
struct DescribedApp {
  /// The record, with what the catalog adds to it. Its rating is the one that counts: absent where
  /// it is not known, without a mean where nobody has rated. Of a record of another build it holds
  /// what belongs to the app as a whole.
  ITunesApp record;
  Platform platform = Platform::mac;
  std::optional<bool> free;  ///< a record that names neither a price nor a text for it is
  MonetizationModel monetization = MonetizationModel::unknown;

  bool isCatalogRead = false;  ///< where it was, an app without a rating is one that nobody rated
  PlatformInfo build;
  std::optional<std::vector<VersionEntry>> versions;  ///< newest first
  std::optional<std::vector<InAppPurchase>> purchases;
  std::optional<ChartPosition> chartPosition;
};

/// Joins a record with the catalog's answer for its build for `platform`; absent where the catalog
/// was not read. Where the record is of another build (an ID that a Mac and an iOS app share), what
/// belongs to a build (version, dates, size, requirements, ratings) is the catalog's alone.
[[nodiscard]] DescribedApp describeApp(ITunesApp record, Platform platform,
                                       std::optional<AppEnrichment> catalog);

/// What the record alone says, of its own build.
[[nodiscard]] DescribedApp describeApp(ITunesApp record);

}  // namespace quillet
