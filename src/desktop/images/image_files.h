// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>

namespace quillet {

/// Bytes kept on the disk by address, a file each. A file that cannot be read or written is as if
/// nothing had been kept. May be used on several threads at once.
class ImageFiles {
 public:
  /// The folder is made with the first file; an empty path keeps nothing.
  explicit ImageFiles(std::filesystem::path folder) : folder_(std::move(folder)) {}

  /// Counts as a use of the file.
  [[nodiscard]] std::optional<std::string> find(const std::string& address) const;
  void keep(const std::string& address, const std::string& bytes) const;

  /// Removes the files that were not used for longest until at most `limit` bytes are left.
  void sweep(std::uintmax_t limit) const;
  [[nodiscard]] std::uintmax_t size() const;

 private:
  [[nodiscard]] std::filesystem::path fileOf(const std::string& address) const;

  std::filesystem::path folder_;
};

}  // namespace quillet
