// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <filesystem>

#include "system/environment.h"

namespace quillet {

/// Where the user's files lie. All paths are absolute; nothing is created.
struct Places {
  std::filesystem::path dataDirectory;  ///< holds the library's database
  std::filesystem::path settingsFile;
  std::filesystem::path cacheDirectory;
  std::filesystem::path autostartDirectory;  ///< what a session starts; empty where it has none
  std::filesystem::path stateDirectory;      ///< how windows were left; the data directory on macOS
};

/// QUILLET_DATA_DIR names the data directory; otherwise the places are the platform's usual ones.
/// Without a usable HOME the account's home directory is taken, and where there is none either,
/// the root, where nothing is found.
[[nodiscard]] Places findPlaces(const Environment& environment);

}  // namespace quillet
