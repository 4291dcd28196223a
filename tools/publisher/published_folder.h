// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <filesystem>
#include <functional>

#include "publisher/price_files.h"

namespace quillet {

/// Whether a file had to be written.
enum class Publication { changed, unchanged };

/// A folder that a web server hands out. As long as this lives, no other process publishes there;
/// one that tries waits.
class PublishedFolder {
 public:
  using Pause = std::function<void()>;

  /// Makes the folder where there is none. `pause` is called again and again while another process
  /// publishes there; what it throws ends the waiting. Throws std::system_error, naming the folder.
  PublishedFolder(std::filesystem::path folder, const Pause& pause);
  ~PublishedFolder();
  PublishedFolder(const PublishedFolder&) = delete;
  PublishedFolder& operator=(const PublishedFolder&) = delete;

  /// Puts the file in place at once and whole: whoever reads has the old one or the new one, also
  /// after a power cut. A file that holds these bytes already is not touched, so that a server goes
  /// on telling its readers that nothing is new. Throws std::system_error, naming the file.
  Publication put(const PublishedFile& file) const;

 private:
  std::filesystem::path folder_;
  int descriptor_;
};

}  // namespace quillet
