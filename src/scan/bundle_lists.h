// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace quillet {

// The property lists of a bundle. Their texts come trimmed and printable; one that is empty or far
// longer than such a text can be is absent, and so is an identifier with characters that none has.

/// What an app says of itself: Info.plist.
struct BundleInfo {
  std::optional<std::string> bundleId;
  std::optional<std::string> name;
  std::optional<std::string> version;  ///< the short one, else that of the build
  std::optional<std::string> minimumSystem;
  std::optional<std::string> executable;  ///< the name of a file; never a path

  friend bool operator==(const BundleInfo&, const BundleInfo&) = default;
};

/// What the store noted beside an iPhone app: iTunesMetadata.plist.
struct StoreNote {
  std::optional<std::int64_t> trackId;
  std::optional<std::string> bundleId;
  std::optional<std::string> name;
  std::optional<std::string> version;

  friend bool operator==(const StoreNote&, const StoreNote&) = default;
};

/// Throw DecodingError as readPlistScalars() does.
[[nodiscard]] BundleInfo readBundleInfo(std::string_view bytes);
[[nodiscard]] StoreNote readStoreNote(std::string_view bytes);

}  // namespace quillet
