// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <filesystem>
#include <map>
#include <set>
#include <string>
#include <vector>

#include "desktop/services/live_settings.h"
#include "desktop/services/state_file.h"
#include "library/schema/owned_app.h"

namespace quillet {

using FolderList = std::vector<std::filesystem::path>;

/// The folders with applications that the user chose.
[[nodiscard]] FolderList chosenFolders(const Settings& settings);
/// Throws BadSetting where they cannot be kept.
void writeFolders(WritableSettings& settings, const FolderList& folders);

/// Where this system mounts the user's disks.
[[nodiscard]] FolderList mountFolders();

/// Bundle IDs in lower case that scans pass over.
[[nodiscard]] std::set<std::string> ignoredBundles(const Settings& settings);
/// Both throw BadSetting.
void ignoreBundle(WritableSettings& settings, const std::string& bundleId);
void heedBundle(WritableSettings& settings, const std::string& bundleId);

/// Bundle IDs in lower case that a scan has found while My Apps had them. One that it has no more
/// was taken out of it by the user.
[[nodiscard]] std::set<std::string> foundBundles(const StateFile& state);
void rememberFound(StateFile& state, const std::set<std::string>& bundleIds);

/// When each folder was last read whole.
using FolderScans = std::map<std::string, Instant>;

/// A scan that came to its end.
struct LastScan {
  Instant at{};
  std::size_t bundles = 0;
  std::size_t matched = 0;
  FolderScans folders;  ///< by this one or an earlier one

  friend bool operator==(const LastScan&, const LastScan&) = default;
};
[[nodiscard]] std::optional<LastScan> lastScan(const StateFile& state);
void rememberScan(StateFile& state, const LastScan& scan);

/// Whether the app lay in one of these folders, and was no longer found when it was last read.
[[nodiscard]] bool isMissing(const OwnedApp& app, const FolderScans& folders);

}  // namespace quillet
