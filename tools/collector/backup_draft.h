// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <filesystem>
#include <stdexcept>

#include "collector/stop_watch.h"
#include "system/file_lock.h"

namespace quillet {

/// That a file has the name that a new one is to get.
class FileInTheWay : public std::runtime_error {
  using std::runtime_error::runtime_error;
};

/// An SQLite file that is written beside the name that it gets once it is whole. It is gone with
/// this object unless it was put there. As long as this lives, other drafts in the folder wait. All
/// operations throw FileInTheWay, or std::system_error, which names the file.
class BackupDraft {
 public:
  /// Removes what one that was killed left. Throws Stopped, too.
  BackupDraft(std::filesystem::path target, StopWatch stop);
  ~BackupDraft();
  BackupDraft(const BackupDraft&) = delete;
  BackupDraft& operator=(const BackupDraft&) = delete;

  /// Where it is to be written.
  [[nodiscard]] const std::filesystem::path& path() const { return path_; }

  /// Gives it its name, on the disk also after a power cut. Never replaces a file.
  void put();

 private:
  void remove() const;

  std::filesystem::path target_;
  std::filesystem::path folder_;
  std::filesystem::path path_;
  FileLock lock_;
};

}  // namespace quillet
