// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "system/whole_file.h"

#include <fcntl.h>
#include <fmt/format.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <random>
#include <system_error>
#include <utility>

#include "base/errors.h"
#include "system/descriptor.h"

namespace quillet {

namespace {

namespace fs = std::filesystem;

/// What was being done with a file when it failed.
struct Attempt {
  const fs::path& file;
  std::string_view what;  ///< "read" or "written"

  [[noreturn]] void fail(std::string_view reason) const {
    throw FileError(fmt::format("'{}' could not be {}: {}.", file.string(), what, reason));
  }
  [[noreturn]] void failOf(int error) const { fail(std::generic_category().message(error)); }
};

/// Reads up to `size` bytes more onto the end of `bytes`; returns how many, or -1 with errno set.
ssize_t readMore(const Descriptor& file, std::string& bytes, std::size_t size) {
  const std::size_t before = bytes.size();
  bytes.resize(before + size);
  ssize_t count = 0;
  do {
    count = ::read(file.get(), bytes.data() + before, size);
  } while (count < 0 && errno == EINTR);
  bytes.resize(before + (count > 0 ? static_cast<std::size_t>(count) : 0));
  return count;
}

/// The regular file that `file` names, links followed, or would name.
fs::path targetOf(const fs::path& file, const Attempt& attempt) {
  std::error_code error;
  const fs::path target = fs::canonical(file, error);
  if (error) return fs::absolute(file, error);
  if (!fs::is_regular_file(target, error)) attempt.fail("it is not a file");
  return target;
}

fs::path nameBeside(const fs::path& file) {
  // Not made of the file's own name, which may have all the length that a name can have.
  return file.parent_path() / fmt::format(".quillet-{:08x}.part", std::random_device()());
}

/// A new file that takes an old one's place, or is gone again when it did not.
class Replacement {
 public:
  Replacement(fs::path target, const Attempt& attempt)
      : attempt_(attempt),
        target_(std::move(target)),
        path_(nameBeside(target_)),
        file_(::open(path_.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666)) {
    if (file_.isOpen()) return;
    if (errno == ENOENT || errno == ENOTDIR) attempt_.fail("its folder does not exist");
    attempt_.failOf(errno);
  }
  Replacement(const Replacement&) = delete;
  Replacement& operator=(const Replacement&) = delete;
  ~Replacement() {
    if (!path_.empty()) ::unlink(path_.c_str());
  }

  void write(std::string_view bytes) {
    while (!bytes.empty()) {
      const ssize_t count = ::write(file_.get(), bytes.data(), bytes.size());
      if (count < 0 && errno == EINTR) continue;
      check(count);
      bytes.remove_prefix(static_cast<std::size_t>(count));
    }
  }

  void takePlace() {
    struct stat old{};
    if (::stat(target_.c_str(), &old) == 0) check(::fchmod(file_.get(), old.st_mode & 0777));
    // Without this a power cut after the renaming could leave an empty file.
    check(::fsync(file_.get()));
    check(file_.close());
    check(::rename(path_.c_str(), target_.c_str()));
    path_.clear();
    syncFolder();
  }

 private:
  void check(ssize_t status) const {
    if (status < 0) attempt_.failOf(errno);
  }

  /// Makes the renaming last. Not every file system can, and the file is in its place by now, so
  /// nothing is told of it.
  void syncFolder() const {
    const Descriptor folder(::open(target_.parent_path().c_str(), O_RDONLY | O_CLOEXEC));
    if (folder.isOpen()) ::fsync(folder.get());
  }

  const Attempt& attempt_;
  fs::path target_;
  fs::path path_;  ///< empty once it has the target's name
  Descriptor file_;
};

}  // namespace

std::string readWholeFile(const fs::path& file, std::size_t limit) {
  // The end of a file of some kilobytes, read at each start, is found without much memory.
  constexpr std::size_t kPiece = std::size_t{32} * 1024;
  const Attempt attempt{file, "read"};
  // O_NONBLOCK: a pipe without a writer would hold the reader for ever.
  const Descriptor source(::open(file.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK));
  if (!source.isOpen()) attempt.failOf(errno);
  std::string bytes;
  while (const ssize_t count = readMore(source, bytes, kPiece)) {
    if (count < 0) attempt.failOf(errno);
    if (bytes.size() > limit) {
      attempt.fail(fmt::format("it holds more than {} bytes", limit));
    }
  }
  return bytes;
}

void replaceFile(const fs::path& file, std::string_view content) {
  const Attempt attempt{file, "written"};
  Replacement replacement(targetOf(file, attempt), attempt);
  replacement.write(content);
  replacement.takePlace();
}

}  // namespace quillet
