// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>

#include "base/cpu_architectures.h"

namespace quillet {

/// What kind of app a bundle holds.
enum class BundleKind {
  mac,      ///< a Mac app
  wrapped,  ///< an iPhone or iPad app, as Macs with Apple silicon keep it
};

/// Why a bundle says too little of itself to be looked up.
enum class BundleFaultKind {
  noList,          ///< it has no Info.plist, or one that may not be read
  unreadableList,  ///< its Info.plist is damaged, too large or too deep
  noIdentifier,    ///< neither list names an identifier
};

struct BundleFault {
  BundleFaultKind kind = BundleFaultKind::noIdentifier;
  std::string reason;  ///< a sentence

  friend bool operator==(const BundleFault&, const BundleFault&) = default;
};

/// One app as it lies on the disk. All texts come from files that anybody may have made; they are
/// valid UTF-8 without control characters, and nothing else is promised of them.
struct InstalledBundle {
  std::filesystem::path
      path;  ///< the folder that was scanned and the names below it; may not be UTF-8
  BundleKind kind = BundleKind::mac;
  std::string name;  ///< never empty: without one in the list, that of the folder without ".app"
  std::optional<std::string> bundleId;
  std::optional<std::string> version;        ///< the short one, else that of the build
  std::optional<std::string> minimumSystem;  ///< of macOS, or of iOS where the app is wrapped
  /// From the store's own record beside a wrapped app; Mac apps carry none.
  std::optional<std::int64_t> trackId;
  /// Whether the store left its receipt, or the record that names the track ID: as with every app
  /// that was bought or loaded there.
  bool hasReceipt = false;
  /// Of the executable; empty where it cannot be told, as for a script.
  CpuArchitectures architectures;
  /// Of all files inside. Counted last: absent until then, and where a folder could not be read.
  std::optional<std::int64_t> sizeBytes;
  /// Set where there is neither an identifier nor a track ID to look up.
  std::optional<BundleFault> fault;

  friend bool operator==(const InstalledBundle&, const InstalledBundle&) = default;
};

}  // namespace quillet
