// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "system/file_lock.h"

#include <fcntl.h>
#include <sys/file.h>

#include <cerrno>
#include <system_error>

namespace quillet {
namespace {

constexpr mode_t kOwnerOnly = 0600;

[[noreturn]] void fail() { throw std::system_error(errno, std::generic_category()); }

}  // namespace

std::optional<FileLock> FileLock::tryTake(Descriptor& file) {
  while (::flock(file.get(), LOCK_EX | LOCK_NB) != 0) {
    if (errno == EWOULDBLOCK) return {};
    if (errno != EINTR) fail();
  }
  return FileLock(std::move(file));
}

Descriptor openLockFile(const std::filesystem::path& file) {
  Descriptor opened(::open(file.c_str(), O_RDWR | O_CREAT | O_CLOEXEC, kOwnerOnly));
  if (!opened.isOpen()) fail();
  return opened;
}

}  // namespace quillet
