// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <cstddef>
#include <filesystem>
#include <functional>
#include <string>
#include <vector>

#include "scan/installed_bundle.h"

namespace quillet {

/// What became of a folder that was to be scanned. In all states but `read` nothing may be
/// concluded about apps that were found there before: a disk that is not mounted leaves its folder
/// empty.
enum class FolderState {
  read,        ///< it holds bundles, or holds other things and no bundle
  empty,       ///< it holds nothing but hidden files
  missing,     ///< it is not there
  unreadable,  ///< it is no folder, or it or one in it cannot be read; what was found there counts
};

struct ScannedFolder {
  std::filesystem::path folder;  ///< as it was given
  FolderState state = FolderState::missing;
  std::size_t bundles = 0;  ///< found in it
  std::string reason;       ///< the system's words, where it is unreadable

  friend bool operator==(const ScannedFolder&, const ScannedFolder&) = default;
};

enum class ScanStep {
  reading,    ///< what each bundle says of itself
  measuring,  ///< how large each is
};

struct ScanProgress {
  ScanStep step = ScanStep::reading;
  std::size_t done = 0;
  std::size_t total = 0;  ///< bundles found; the same in both steps
};

/// Who follows a scan. All are called on the scan's own thread and throw nothing; any may be left
/// out.
struct ScanWatch {
  /// Whether to end early. Asked between bundles, and between the folders of a bundle.
  std::function<bool()> stopped;
  /// A bundle has been read; its size is not known yet.
  std::function<void(const InstalledBundle&, const ScanProgress&)> bundleRead;
  /// The same bundle once more, in the same order, when all have been read: now with its size,
  /// where that can be counted.
  std::function<void(const InstalledBundle&, const ScanProgress&)> bundleMeasured;
};

enum class ScanEnd {
  complete,
  stopped,  ///< as ScanWatch asked
  tooMany,  ///< beyond kMostBundles nothing was looked at
};

struct ScanResult {
  std::vector<ScannedFolder> folders;    ///< in the order given, those alone that were looked into
  std::vector<InstalledBundle> bundles;  ///< by folder, then by name; all that were read
  ScanEnd end = ScanEnd::complete;
};

inline constexpr std::size_t kMostBundles = 20000;

/// Reads every app bundle directly in `folders` and in the folders directly in these, and each
/// once, however often it is reached. A folder that is given may be a symbolic link; within it none
/// is followed, neither to a bundle nor inside one, so that nothing outside is read. Hidden names
/// are passed over.
///
/// It only reads. Whatever the disk holds, it does not throw: a damaged bundle carries its fault,
/// and a folder its state. It blocks for as long as the disk takes: run it on a worker.
[[nodiscard]] ScanResult scanApplications(const std::vector<std::filesystem::path>& folders,
                                          const ScanWatch& watch = {});

}  // namespace quillet
