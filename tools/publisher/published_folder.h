// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <filesystem>

#include "publisher/price_files.h"
#include "system/file_lock.h"

namespace quillet {

/// Whether a file had to be written.
enum class Publication { changed, unchanged };

/// A folder that a web server hands out. As long as this lives, no other process publishes there;
/// one that tries waits.
class PublishedFolder {
 public:
  /// Makes the folder where there is none. Throws std::system_error, naming it.
  explicit PublishedFolder(std::filesystem::path folder);

  /// Puts the file in place at once and whole: whoever reads has the old one or the new one, also
  /// after a power cut. A file that holds these bytes already is not touched, so that a server goes
  /// on telling its readers that nothing is new. Throws std::system_error, naming the file.
  Publication put(const PublishedFile& file) const;

 private:
  std::filesystem::path folder_;
  FileLock lock_;
};

}  // namespace quillet
