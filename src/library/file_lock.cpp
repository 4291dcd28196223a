// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "library/file_lock.h"

#include <fcntl.h>
#include <fmt/format.h>
#include <sys/file.h>
#include <unistd.h>

#include <cerrno>
#include <system_error>

#include "base/errors.h"

namespace quillet {
namespace {

constexpr mode_t kOwnerOnly = 0600;

std::string reasonOf(int error) { return std::generic_category().message(error); }

}  // namespace

FileLock::FileLock(const std::filesystem::path& file)
    : descriptor_(::open(file.c_str(), O_RDWR | O_CREAT | O_CLOEXEC, kOwnerOnly)) {
  if (descriptor_ < 0) {
    throw DatabaseError(
        fmt::format("The library could not be opened: {}: {}.", file.string(), reasonOf(errno)));
  }
  if (::flock(descriptor_, LOCK_EX | LOCK_NB) == 0) return;
  const int error = errno;
  ::close(descriptor_);
  if (error == EWOULDBLOCK) throw DatabaseError("Another Quillet is writing to the library.");
  throw DatabaseError(fmt::format("The library could not be locked: {}.", reasonOf(error)));
}

// The file stays: removing it would let two processes lock two files of one name.
FileLock::~FileLock() { ::close(descriptor_); }

}  // namespace quillet
