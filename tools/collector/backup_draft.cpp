// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "collector/backup_draft.h"

#include <fcntl.h>
#include <fmt/format.h>
#include <stdio.h>
#include <unistd.h>

#include <cerrno>
#include <system_error>
#include <utility>

#include "publisher/named_files.h"

namespace quillet {

namespace {

namespace fs = std::filesystem;

constexpr std::chrono::milliseconds kBetweenTries{50};

void synchronize(const fs::path& path, int flags) {
  if (::fsync(openedFile(path, flags).get()) != 0) failAtFile(path);
}

fs::path folderOf(const fs::path& file) {
  return file.has_parent_path() ? file.parent_path() : fs::path(".");
}

void requireFree(const fs::path& target) {
  std::error_code error;
  if (fs::exists(fs::symlink_status(target, error)))
    throw FileInTheWay(
        fmt::format("There is a file {} already; it stays as it is.", target.string()));
}

}  // namespace

BackupDraft::BackupDraft(fs::path target, StopWatch stop)
    : target_(std::move(target)),
      folder_(folderOf(target_)),
      path_(folder_ / fmt::format(".{}.new", target_.filename().string())),
      lock_(lockedFolder(folder_, [&] { stop.pause(kBetweenTries); })) {
  requireFree(target_);
  remove();
}

BackupDraft::~BackupDraft() { remove(); }

void BackupDraft::put() {
  synchronize(path_, O_RDWR);
  // Not every file system has this way of renaming.
  int error = 0;
  if (::renameat2(AT_FDCWD, path_.c_str(), AT_FDCWD, target_.c_str(), RENAME_NOREPLACE) != 0)
    error = errno;
  if (error != 0) requireFree(target_);
  if (error == EINVAL) error = ::rename(path_.c_str(), target_.c_str()) == 0 ? 0 : errno;
  if (error != 0) throw std::system_error(error, std::generic_category(), target_.string());
  synchronize(folder_, O_RDONLY | O_DIRECTORY);
}

/// With what the database may have kept beside it.
void BackupDraft::remove() const {
  std::error_code ignored;
  for (const char* end : {"", "-journal", "-wal", "-shm"})
    fs::remove(path_.string() + end, ignored);
}

}  // namespace quillet
