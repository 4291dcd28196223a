// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "publisher/published_folder.h"

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include <cerrno>
#include <fstream>
#include <sstream>
#include <system_error>

namespace quillet {

namespace {

namespace fs = std::filesystem;

constexpr mode_t kReadableByAll = 0644;  // a web server runs as somebody else

[[noreturn]] void fail(const fs::path& file) {
  throw std::system_error(errno, std::generic_category(), file.string());
}

int opened(const fs::path& path, int flags) {
  const int descriptor = ::open(path.c_str(), flags | O_CLOEXEC, kReadableByAll);
  if (descriptor < 0) fail(path);
  return descriptor;
}

/// A file that is open for writing until the end of its life.
class OutputFile {
 public:
  explicit OutputFile(const fs::path& path)
      : path_(path), descriptor_(opened(path, O_WRONLY | O_CREAT | O_TRUNC)) {}
  ~OutputFile() { ::close(descriptor_); }
  OutputFile(const OutputFile&) = delete;
  OutputFile& operator=(const OutputFile&) = delete;

  void write(std::string_view bytes) const {
    while (!bytes.empty()) {
      const ssize_t written = ::write(descriptor_, bytes.data(), bytes.size());
      if (written < 0 && errno == EINTR) continue;
      if (written < 0) fail(path_);
      bytes.remove_prefix(static_cast<std::size_t>(written));
    }
  }

  void reachTheDisk() const {
    if (::fsync(descriptor_) != 0) fail(path_);
  }

 private:
  const fs::path& path_;
  int descriptor_;
};

bool holds(const fs::path& path, const std::string& bytes) {
  std::error_code error;
  if (fs::file_size(path, error) != bytes.size() || error) return false;
  std::ostringstream content;
  content << std::ifstream(path, std::ios::binary).rdbuf();
  return content.view() == bytes;
}

/// False while another process has the lock.
bool isLocked(int descriptor, const fs::path& folder) {
  if (::flock(descriptor, LOCK_EX | LOCK_NB) == 0) return true;
  if (errno != EWOULDBLOCK && errno != EINTR) fail(folder);
  return false;
}

fs::path made(fs::path folder) {
  fs::create_directories(folder);
  return folder;
}

}  // namespace

PublishedFolder::PublishedFolder(fs::path folder, const Pause& pause)
    : folder_(made(std::move(folder))), descriptor_(opened(folder_, O_RDONLY | O_DIRECTORY)) {
  try {
    while (!isLocked(descriptor_, folder_)) pause();
  } catch (...) {
    ::close(descriptor_);
    throw;
  }
}

PublishedFolder::~PublishedFolder() { ::close(descriptor_); }

Publication PublishedFolder::put(const PublishedFile& file) const {
  const fs::path target = folder_ / file.name;
  if (holds(target, file.bytes)) return Publication::unchanged;
  // One that a killed publisher left is overwritten here.
  const fs::path temporary = folder_ / ('.' + file.name + ".new");
  {
    const OutputFile output(temporary);
    output.write(file.bytes);
    output.reachTheDisk();
  }
  if (::rename(temporary.c_str(), target.c_str()) != 0) fail(target);
  if (::fsync(descriptor_) != 0) fail(folder_);
  return Publication::changed;
}

}  // namespace quillet
