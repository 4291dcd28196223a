// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "scan/open_folder.h"

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <string_view>
#include <system_error>

#include "system/descriptor.h"

namespace quillet {
namespace {

[[noreturn]] void fail() { throw std::system_error(errno, std::generic_category()); }

/// Whether the last call failed for want of what it was to open.
bool isAbsence() {
  switch (errno) {
    case ENOENT:
    case ENAMETOOLONG:
    case ENXIO:    // a socket
    case ENOTDIR:  // a file, or a link to a folder
    case ELOOP:    // a link
      return true;
    default: return false;
  }
}

ssize_t readSome(const Descriptor& file, char* into, std::size_t size) {
  ssize_t count = 0;
  do {
    count = ::read(file.get(), into, size);
  } while (count < 0 && errno == EINTR);
  return count;
}

std::string startOf(const Descriptor& file, std::size_t size) {
  std::string bytes(size, '\0');
  std::size_t filled = 0;
  while (filled < size) {
    const ssize_t count = readSome(file, bytes.data() + filled, size - filled);
    if (count < 0) fail();
    if (count == 0) break;
    filled += static_cast<std::size_t>(count);
  }
  bytes.resize(filled);
  return bytes;
}

}  // namespace

OpenFolder::OpenFolder(const std::filesystem::path& folder)
    : OpenFolder(::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC)) {}

OpenFolder::OpenFolder(int descriptor) {
  Descriptor opened(descriptor);
  if (!opened.isOpen()) fail();
  stream_.reset(::fdopendir(opened.get()));
  if (!stream_) fail();
  static_cast<void>(opened.release());  // the stream's from now on
}

std::optional<OpenFolder> OpenFolder::folder(const std::string& name) const {
  constexpr int kFlags = O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC;
  const int opened = ::openat(descriptor(), name.c_str(), kFlags);
  if (opened < 0 && isAbsence()) return std::nullopt;
  return OpenFolder(opened);
}

std::optional<std::string> OpenFolder::start(const std::string& name, std::size_t limit) const {
  // O_NONBLOCK: a pipe without a writer would hold the reader for ever.
  constexpr int kFlags = O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC;
  const Descriptor file(::openat(descriptor(), name.c_str(), kFlags));
  if (!file.isOpen()) {
    if (isAbsence()) return std::nullopt;
    fail();
  }
  struct stat status{};
  if (::fstat(file.get(), &status) != 0) fail();
  if (!S_ISREG(status.st_mode)) return std::nullopt;
  const auto size = static_cast<std::size_t>(status.st_size);
  return startOf(file, std::min(size, limit));
}

std::optional<struct stat> OpenFolder::status(const std::string& name) const {
  struct stat status{};
  if (::fstatat(descriptor(), name.c_str(), &status, AT_SYMLINK_NOFOLLOW) == 0) return status;
  if (isAbsence()) return std::nullopt;
  fail();
}

bool OpenFolder::hasFile(const std::string& name) const {
  const auto found = status(name);
  return found && S_ISREG(found->st_mode);
}

std::optional<FolderEntry> OpenFolder::next() {
  while (true) {
    errno = 0;
    const dirent* entry = ::readdir(stream_.get());
    if (entry == nullptr) {
      if (errno != 0) fail();
      return std::nullopt;
    }
    const std::string_view name = entry->d_name;
    if (name == "." || name == "..") continue;
    FolderEntry found{std::string(name), entry->d_type == DT_DIR};
    // Not every file system tells here what an entry is.
    if (entry->d_type == DT_UNKNOWN) {
      const auto known = status(found.name);
      found.isFolder = known && S_ISDIR(known->st_mode);
    }
    return found;
  }
}

}  // namespace quillet
