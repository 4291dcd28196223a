// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "publisher/named_files.h"

#include <fcntl.h>

#include <cerrno>
#include <optional>
#include <system_error>
#include <utility>

namespace quillet {

namespace fs = std::filesystem;

void failAtFile(const fs::path& file) {
  throw std::system_error(errno, std::generic_category(), file.string());
}

Descriptor openedFile(const fs::path& file, int flags, mode_t mode) {
  Descriptor descriptor(::open(file.c_str(), flags | O_CLOEXEC, mode));
  if (!descriptor.isOpen()) failAtFile(file);
  return descriptor;
}

FileLock lockedFolder(const fs::path& folder, const std::function<void()>& pause) {
  Descriptor descriptor = openedFile(folder, O_RDONLY | O_DIRECTORY);
  for (;; pause()) {
    try {
      if (auto lock = FileLock::tryTake(descriptor)) return std::move(*lock);
    } catch (const std::system_error& error) {
      throw std::system_error(error.code(), folder.string());
    }
  }
}

}  // namespace quillet
