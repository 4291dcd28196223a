// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "queries/query_call.h"

namespace quillet {

/// Which app of the store an installed one may be.
struct BundleIdentity {
  std::optional<std::string> bundleId;
  std::optional<std::int64_t> trackId;  ///< as the store itself noted it: goes before the bundle ID
  Platform platform = Platform::mac;    ///< of the build that is installed
};

enum class MatchKind {
  found,
  notInStorefront,
  otherBuildAlone,  ///< the storefront has an iPhone app of that ID, and none for the Mac
  noIdentity,       ///< nothing that the store could be asked for
};

struct BundleMatch {
  MatchKind kind = MatchKind::noIdentity;
  /// Of what was found. It may describe the iPhone build of an app that is for the Mac as well.
  std::optional<ITunesApp> record;
  std::optional<std::string> version;  ///< that the store has of the installed build

  friend bool operator==(const BundleMatch&, const BundleMatch&) = default;
};

/// Asks a storefront which apps these are: one match for each, in their order. At most kLookupBatch
/// of them are asked for at once, so whoever wants answers as they come hands in so many. Throws
/// what ITunesClient::lookup() throws; of a catalog that does not answer, the versions are absent.
Task<std::vector<BundleMatch>> matchBundles(std::vector<BundleIdentity> bundles,
                                            std::string country, QueryServices services,
                                            QueryCall call);

}  // namespace quillet
