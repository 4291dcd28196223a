// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <filesystem>
#include <functional>

#include "publisher/price_files.h"
#include "system/descriptor.h"
#include "system/file_lock.h"

namespace quillet {

/// Whether a file had to be written.
enum class Publication { changed, unchanged };

/// A folder that a web server hands out. As long as this lives, no other process publishes there;
/// one that tries waits.
class PublishedFolder {
 public:
  using Pause = std::function<void()>;

  /// Makes the folder where there is none, open to all readers, and removes what a killed publisher
  /// left in it. `pause` is called again and again while another process
  /// publishes there; what it throws ends the waiting. Throws std::system_error, naming the folder.
  PublishedFolder(std::filesystem::path folder, const Pause& pause);

  /// A file that is written beside the one that it is to replace. It is gone with this object
  /// unless it was put in place. All operations throw std::system_error, naming the file.
  class Draft {
   public:
    Draft(const PublishedFolder& folder, const std::string& name);
    ~Draft();
    Draft(Draft&& other) noexcept = default;
    Draft& operator=(Draft&&) = delete;

    void write(std::string_view bytes);
    [[nodiscard]] std::size_t size() const { return size_; }
    /// Whether it holds what the published one does.
    [[nodiscard]] bool isPublished() const;
    /// Puts it in place at once and whole: whoever reads has the old one or the new one, also after
    /// a power cut. One that holds the same bytes already is not touched, so that a server goes on
    /// telling its readers that nothing is new.
    Publication put();

   private:
    const PublishedFolder* folder_;
    std::filesystem::path target_;
    std::filesystem::path path_;
    Descriptor file_;
    std::size_t size_ = 0;
  };

  /// Puts a file in place as a draft is.
  Publication put(const PublishedFile& file) const;

  [[nodiscard]] const std::filesystem::path& path() const { return folder_; }

 private:
  std::filesystem::path folder_;
  FileLock lock_;
};

}  // namespace quillet
