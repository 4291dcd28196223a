// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <chrono>
#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "base/dates.h"
#include "publisher/gzip_file.h"

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
  std::optional<Instant> goneSince;    ///< absent: it is sold
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
  std::optional<Instant> looked;  ///< when the store last told prices; absent: not known
};

struct PublishedFile {
  std::string name;
  std::string bytes;
};

/// The name of a storefront's file: "changes-us.json.gz".
[[nodiscard]] std::string priceFileName(std::string_view country);

/// Makes a storefront's file app by app, so that it never lies in memory as a whole: gzip, with no
/// name or time in its head.
class PriceFileMaker {
 public:
  /// `take` is given the file's bytes.
  PriceFileMaker(std::string country, Instant stamp, TakeBytes take);

  /// One after the other by track ID. An app that did not move is left out.
  void add(RecordedApp app);
  /// Once, after all apps.
  void end();

  /// Those that are in the file.
  [[nodiscard]] std::size_t apps() const { return apps_; }
  /// How large it is when it is unpacked, in bytes.
  [[nodiscard]] std::size_t unpackedSize() const { return unpackedSize_; }

 private:
  void write(std::string_view json);

  std::string country_;
  GzipPacker packer_;
  std::size_t apps_ = 0;
  std::size_t unpackedSize_ = 0;
};

/// When the file was made, as it says itself; absent where there is none, or another one.
[[nodiscard]] std::optional<Instant> stampOfPriceFile(const std::filesystem::path& file);

/// As it is published: one price for each UTC day, the day's last, and only where it is another
/// than the one before; only apps whose price moved, so with at least two such; by track ID.
[[nodiscard]] RecordedStorefront onlyMoved(RecordedStorefront storefront);

/// The file of a storefront of which onlyMoved() is left.
[[nodiscard]] PublishedFile priceFile(const RecordedStorefront& moved);

/// The list of the files, in the order given; its own time is the newest stamp.
[[nodiscard]] PublishedFile manifestFile(const std::vector<ManifestEntry>& entries);

}  // namespace quillet
