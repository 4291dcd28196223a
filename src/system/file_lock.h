// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <filesystem>
#include <optional>

#include "system/descriptor.h"

namespace quillet {

/// The only lock on a file or folder, held until the end of its life. The system drops it when the
/// process ends, however it ends, so a file left behind stops nobody; it stays, since removing it
/// would let two processes lock two files of one name.
class FileLock {
 public:
  /// Takes `file` over and locks it. Absent when another holder has the lock, in this process or
  /// another; then `file` is the caller's as before. Throws std::system_error.
  [[nodiscard]] static std::optional<FileLock> tryTake(Descriptor& file);

  [[nodiscard]] const Descriptor& file() const { return file_; }

 private:
  explicit FileLock(Descriptor file) : file_(std::move(file)) {}

  Descriptor file_;
};

/// A file to be locked, made for its owner alone where there is none. Throws std::system_error.
[[nodiscard]] Descriptor openLockFile(const std::filesystem::path& file);

}  // namespace quillet
