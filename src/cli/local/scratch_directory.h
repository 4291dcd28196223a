// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <filesystem>
#include <optional>

namespace quillet {

/// A directory of our own that nobody else can look into, removed with all that it holds.
class ScratchDirectory {
 public:
  /// Makes one with a new name, and the folders above it. Absent where that fails.
  [[nodiscard]] static std::optional<ScratchDirectory> create(const std::filesystem::path& parent);

  /// A failure to remove it is ignored.
  ~ScratchDirectory();
  ScratchDirectory(ScratchDirectory&& other) noexcept;
  ScratchDirectory& operator=(ScratchDirectory&&) = delete;

  [[nodiscard]] const std::filesystem::path& path() const { return path_; }

 private:
  explicit ScratchDirectory(std::filesystem::path path) : path_(std::move(path)) {}

  std::filesystem::path path_;  // empty where it was handed on
};

}  // namespace quillet
