// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <chrono>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "base/dates.h"

namespace quillet {

/// Where the files lie below the price server's address, or below a published folder.
inline constexpr std::string_view kPriceFilesPath = "file/quillbase-prices/v1";

inline constexpr std::string_view kManifestName = "manifest.json";

/// A price that held from a moment on.
struct CollectedPrice {
  Instant seen;
  double price = 0;

  friend bool operator==(const CollectedPrice&, const CollectedPrice&) = default;
};

/// What is recorded of an app in one storefront. All prices are in one currency.
struct RecordedApp {
  std::int64_t trackId = 0;
  std::string name;
  std::string seller;                  ///< empty: unknown
  std::string currency;                ///< ISO 4217
  std::string kind;                    ///< the store's word; empty: unknown
  std::vector<CollectedPrice> prices;  ///< oldest first
};

struct RecordedStorefront {
  std::string country;  ///< two letters, lower case
  /// When anything that is published of the storefront last changed. Readers take in a file again
  /// only when this is another.
  Instant stamp;
  std::vector<RecordedApp> apps;
};

/// What the manifest says of a storefront's file.
struct ManifestEntry {
  std::string country;
  Instant stamp;
  std::size_t apps = 0;
};

struct PublishedFile {
  std::string name;
  std::string bytes;
};

/// The name of a storefront's file: "changes-us.json.gz".
[[nodiscard]] std::string priceFileName(std::string_view country);

/// As it is published: one price for each UTC day, the day's last, and only where it is another
/// than the one before; only apps whose price moved, so with at least two such; by track ID.
[[nodiscard]] RecordedStorefront onlyMoved(RecordedStorefront storefront);

/// The file of a storefront of which onlyMoved() is left: gzip, with no name or time in its head.
[[nodiscard]] PublishedFile priceFile(const RecordedStorefront& moved);

/// The list of the files, in the order given; its own time is the newest stamp.
[[nodiscard]] PublishedFile manifestFile(const std::vector<ManifestEntry>& entries);

}  // namespace quillet
