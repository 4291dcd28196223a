// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <filesystem>

namespace quillet {

/// A lock on a file that it makes where there is none. The system drops it when the process ends,
/// however it ends, so a file left behind stops nobody.
class FileLock {
 public:
  /// Throws DatabaseError when another holder, in this process or another, has it, or when the
  /// file cannot be made.
  explicit FileLock(const std::filesystem::path& file);
  FileLock(const FileLock&) = delete;
  FileLock& operator=(const FileLock&) = delete;
  ~FileLock();

 private:
  int descriptor_;
};

}  // namespace quillet
