// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "publisher/published_folder.h"

#include <fcntl.h>
#include <fmt/format.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <fstream>
#include <iterator>

#include "publisher/named_files.h"

namespace quillet {

namespace {

namespace fs = std::filesystem;

// A web server runs as somebody else.
constexpr mode_t kFileForAll = 0644;
constexpr unsigned kFolderForAll = 0755;

constexpr std::string_view kDraftEnd = ".new";

bool haveSameBytes(const fs::path& one, const fs::path& other) {
  std::error_code error;
  const auto size = fs::file_size(one, error);
  if (error || fs::file_size(other, error) != size || error) return false;
  std::ifstream first(one, std::ios::binary);
  std::ifstream second(other, std::ios::binary);
  return std::equal(std::istreambuf_iterator<char>(first), {},
                    std::istreambuf_iterator<char>(second), {});
}

/// The folders that are made get rights of their own, whatever the process gives others.
fs::path made(fs::path folder) {
  fs::path parent = folder.parent_path();
  if (fs::is_directory(folder)) return folder;
  if (!parent.empty() && parent != folder) made(std::move(parent));
  if (fs::create_directory(folder)) fs::permissions(folder, fs::perms{kFolderForAll});
  return folder;
}

fs::path draftOf(const fs::path& folder, const std::string& name) {
  return folder / fmt::format(".{}{}", name, kDraftEnd);
}

void removeDrafts(const fs::path& folder) {
  for (const auto& entry : fs::directory_iterator(folder)) {
    const std::string name = entry.path().filename();
    if (name.starts_with('.') && name.ends_with(kDraftEnd)) fs::remove(entry.path());
  }
}

}  // namespace

PublishedFolder::PublishedFolder(fs::path folder, const Pause& pause)
    : folder_(made(std::move(folder))), lock_(lockedFolder(folder_, pause)) {
  removeDrafts(folder_);
}

PublishedFolder::Draft::Draft(const PublishedFolder& folder, const std::string& name)
    : folder_(&folder),
      target_(folder.folder_ / name),
      path_(draftOf(folder.folder_, name)),
      file_(openedFile(path_, O_WRONLY | O_CREAT | O_TRUNC, kFileForAll)) {
  if (::fchmod(file_.get(), kFileForAll) != 0) failAtFile(path_);
}

PublishedFolder::Draft::~Draft() {
  if (file_.isOpen()) ::unlink(path_.c_str());
}

void PublishedFolder::Draft::write(std::string_view bytes) {
  size_ += bytes.size();
  while (!bytes.empty()) {
    const ssize_t written = ::write(file_.get(), bytes.data(), bytes.size());
    if (written < 0 && errno == EINTR) continue;
    if (written < 0) failAtFile(path_);
    bytes.remove_prefix(static_cast<std::size_t>(written));
  }
}

bool PublishedFolder::Draft::isPublished() const { return haveSameBytes(path_, target_); }

Publication PublishedFolder::Draft::put() {
  if (isPublished()) return Publication::unchanged;
  if (::fsync(file_.get()) != 0) failAtFile(path_);
  if (::rename(path_.c_str(), target_.c_str()) != 0) failAtFile(target_);
  file_ = Descriptor();
  if (::fsync(folder_->lock_.file().get()) != 0) failAtFile(folder_->folder_);
  return Publication::changed;
}

Publication PublishedFolder::put(const PublishedFile& file) const {
  Draft draft(*this, file.name);
  draft.write(file.bytes);
  return draft.put();
}

}  // namespace quillet
