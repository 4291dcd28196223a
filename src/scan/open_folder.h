// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <dirent.h>
#include <sys/stat.h>

#include <cstddef>
#include <filesystem>
#include <memory>
#include <optional>
#include <string>

namespace quillet {

struct FolderEntry {
  std::string name;
  bool isFolder = false;  ///< a link to one is none
};

/// A folder held open, in which names are looked up without following a symbolic link. What is
/// swapped on the disk meanwhile leads nowhere else. Throws std::system_error where the system
/// refuses or fails.
class OpenFolder {
 public:
  /// `folder` itself may be a link.
  explicit OpenFolder(const std::filesystem::path& folder);

  /// The folder of that name in this one. Absent where there is none, and where it is a link.
  [[nodiscard]] std::optional<OpenFolder> folder(const std::string& name) const;

  /// Up to `limit` bytes from the start of the file of that name. Absent where there is none, and
  /// where it is no regular file.
  [[nodiscard]] std::optional<std::string> start(const std::string& name, std::size_t limit) const;

  /// Of what has that name, a link's own. Absent where there is none.
  [[nodiscard]] std::optional<struct stat> status(const std::string& name) const;

  [[nodiscard]] bool hasFile(const std::string& name) const;

  /// Entry by entry, in the disk's order, without "." and ".."; absent after the last one.
  [[nodiscard]] std::optional<FolderEntry> next();

 private:
  struct Close {
    void operator()(DIR* stream) const { ::closedir(stream); }
  };

  explicit OpenFolder(int descriptor);
  [[nodiscard]] int descriptor() const { return ::dirfd(stream_.get()); }

  std::unique_ptr<DIR, Close> stream_;
};

}  // namespace quillet
