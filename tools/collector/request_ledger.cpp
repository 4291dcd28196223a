// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "collector/request_ledger.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <system_error>

namespace quillet {

namespace {

namespace fs = std::filesystem;

constexpr mode_t kForAll = 0666;
constexpr std::int64_t kEntrySize = sizeof(std::int64_t);

/// More than anybody asks for in a minute. The file is shortened to so many when it has twice that.
constexpr std::int64_t kMostKept = 100'000;

[[noreturn]] void fail(int error) { throw std::system_error(error, std::generic_category()); }
[[noreturn]] void fail() { fail(errno); }

/// No link is followed: in a folder for all, somebody else may have put it there.
Descriptor opened(const fs::path& file, int more) {
  return Descriptor(
      ::open(file.c_str(), O_RDWR | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC | more, kForAll));
}

/// Not open, and errno says why, where there is none that we may use.
Descriptor found(const fs::path& file) {
  // Without O_CREAT: with it the system refuses files of others in a folder like /tmp.
  Descriptor descriptor = opened(file, 0);
  if (!descriptor.isOpen()) return descriptor;
  struct stat status{};
  if (::fstat(descriptor.get(), &status) != 0) fail();
  const bool isForUs = status.st_uid == ::geteuid() || (status.st_mode & S_IWOTH) != 0;
  if (S_ISREG(status.st_mode) && status.st_nlink == 1 && isForUs) return descriptor;
  errno = EPERM;
  return Descriptor();
}

Descriptor made(const fs::path& file) {
  Descriptor descriptor = opened(file, O_CREAT | O_EXCL);
  if (descriptor.isOpen() && ::fchmod(descriptor.get(), kForAll) != 0) fail();
  // Another process was faster.
  if (!descriptor.isOpen() && errno == EEXIST) return found(file);
  return descriptor;
}

Descriptor foundOrMade(const std::vector<fs::path>& folders, const std::string& name) {
  int reason = ENOENT;
  for (const auto& way : {found, made}) {
    for (const fs::path& folder : folders) {
      Descriptor descriptor = way(folder / name);
      if (descriptor.isOpen()) return descriptor;
      reason = errno;
    }
  }
  fail(reason);
}

/// The file's lock, if no other process has it.
class Lock {
 public:
  explicit Lock(int file) : file_(file), isHeld_(::flock(file, LOCK_EX | LOCK_NB) == 0) {
    if (!isHeld_ && errno != EWOULDBLOCK && errno != EINTR) fail();
  }
  ~Lock() {
    if (isHeld_) ::flock(file_, LOCK_UN);
  }
  Lock(const Lock&) = delete;
  Lock& operator=(const Lock&) = delete;

  [[nodiscard]] bool isHeld() const { return isHeld_; }

 private:
  int file_;
  bool isHeld_;
};

}  // namespace

RequestLedger::RequestLedger(const std::vector<fs::path>& folders, const std::string& name)
    : file_(foundOrMade(folders, name)) {}

RequestLedger::RequestLedger() : file_(::memfd_create("requests", MFD_CLOEXEC)) {
  if (!file_.isOpen()) fail();
}

RequestLedger::Answer RequestLedger::enter(const Clock& clock, int limit) {
  const Lock lock(file_.get());
  if (!lock.isHeld()) return {Entry::locked};
  // Read before, it could be earlier than what another process wrote just then.
  const Clock::Monotonic now = clock.monotonic();
  forgetAnotherStart(now);
  const std::int64_t count = entries();
  if (count >= limit) {
    const auto reopens = entry(count - limit) + kRequestWindow;
    if (reopens > now) return {Entry::full, reopens - now};
  }
  add(now);
  return {Entry::taken};
}

void RequestLedger::note(const Clock& clock) {
  const Lock lock(file_.get());
  if (lock.isHeld()) add(clock.monotonic());
}

std::int64_t RequestLedger::entries() const {
  struct stat status{};
  if (::fstat(file_.get(), &status) != 0) fail();
  return status.st_size / kEntrySize;
}

Clock::Monotonic RequestLedger::entry(std::int64_t index) const {
  std::int64_t time = 0;
  if (::pread(file_.get(), &time, kEntrySize, index * kEntrySize) < 0) fail();
  return Clock::Monotonic(std::chrono::milliseconds(time));
}

void RequestLedger::add(Clock::Monotonic now) {
  const std::int64_t time = now.time_since_epoch().count();
  const ssize_t written = ::pwrite(file_.get(), &time, kEntrySize, entries() * kEntrySize);
  if (written != kEntrySize) fail(written < 0 ? errno : ENOSPC);
  if (entries() >= 2 * kMostKept) shorten();
}

/// The clock counts from the machine's start: what is later than now is of an earlier one.
void RequestLedger::forgetAnotherStart(Clock::Monotonic now) {
  const std::int64_t count = entries();
  if (count == 0 || entry(count - 1) <= now) return;
  if (::ftruncate(file_.get(), 0) != 0) fail();
}

void RequestLedger::shorten() {
  std::vector<char> kept(kMostKept * kEntrySize);
  const std::int64_t from = (entries() - kMostKept) * kEntrySize;
  if (::pread(file_.get(), kept.data(), kept.size(), from) < 0) fail();
  if (::pwrite(file_.get(), kept.data(), kept.size(), 0) < 0) fail();
  if (::ftruncate(file_.get(), static_cast<off_t>(kept.size())) != 0) fail();
}

}  // namespace quillet
