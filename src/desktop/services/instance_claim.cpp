// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/services/instance_claim.h"

#include <fmt/format.h>
#include <stdlib.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <chrono>
#include <system_error>
#include <thread>
#include <utility>

#include "desktop/services/instance_message.h"
#include "desktop/services/instance_socket.h"

namespace quillet {
namespace {

using namespace std::chrono_literals;
namespace fs = std::filesystem;
using Clock = std::chrono::steady_clock;

constexpr std::string_view kClaimFile = "application.lock";

// One that is about to end takes two seconds at most; one that begins listens at once.
constexpr auto kPatience = 10s;
constexpr auto kBetweenTries = 20ms;

constexpr std::size_t kLongestPath = 4096;

/// The folder that holds what the lock is held on is told apart by the lock file, which is one
/// whatever its folder is called.
std::string socketNameOf(const FileLock& lock) {
  struct stat file{};
  if (::fstat(lock.file().get(), &file) != 0) return "quillet.socket";
  return fmt::format("quillet-{:x}-{:x}.socket", static_cast<std::uintmax_t>(file.st_dev),
                     static_cast<std::uintmax_t>(file.st_ino));
}

/// A folder that only this user can enter; empty where there is none to be had.
fs::path newTemporaryFolder() {
  std::error_code error;
  const std::string anyName(6, 'X');  // which mkdtemp() replaces
  std::string name = fs::temp_directory_path(error) / ("quillet-" + anyName);
  if (error || ::mkdtemp(name.data()) == nullptr) return {};
  return name;
}

void makeDataFolder(const fs::path& folder) {
  std::error_code error;
  if (!fs::create_directories(folder, error)) return;
  fs::permissions(folder, fs::perms::owner_all, error);
}

/// Whoever reads it while it is written finds nobody there, and tries again.
void writeSocket(const FileLock& lock, const fs::path& socket) {
  const int file = lock.file().get();
  const std::string& path = socket.native();
  if (::ftruncate(file, 0) != 0) return;
  [[maybe_unused]] const ssize_t written = ::pwrite(file, path.data(), path.size(), 0);
}

fs::path readSocket(const Descriptor& file) {
  std::array<char, kLongestPath> content;
  const ssize_t size = ::pread(file.get(), content.data(), content.size(), 0);
  return std::string(content.data(), static_cast<std::size_t>(std::max<ssize_t>(size, 0)));
}

}  // namespace

InstanceClaim::InstanceClaim(FileLock lock, const fs::path& dataDirectory,
                             const fs::path& runtimeDirectory)
    : lock_(std::move(lock)) {
  const std::string name = socketNameOf(*lock_);
  std::error_code error;
  for (const fs::path& folder : {runtimeDirectory, fs::absolute(dataDirectory, error)}) {
    if (!folder.is_absolute() || !fs::is_directory(folder, error)) continue;
    listener_ = listenAt(folder / name);
    if (!listener_.isOpen()) continue;
    socket_ = folder / name;
    break;
  }
  if (!listener_.isOpen()) {
    ownFolder_ = newTemporaryFolder();
    if (!ownFolder_.empty()) listener_ = listenAt(ownFolder_ / name);
    if (listener_.isOpen()) socket_ = ownFolder_ / name;
  }
  writeSocket(*lock_, socket_);
}

InstanceClaim::InstanceClaim(InstanceClaim&& other) noexcept { *this = std::move(other); }

InstanceClaim& InstanceClaim::operator=(InstanceClaim&& other) noexcept {
  std::swap(lock_, other.lock_);
  std::swap(socket_, other.socket_);
  std::swap(ownFolder_, other.ownFolder_);
  std::swap(listener_, other.listener_);
  return *this;
}

InstanceClaim::~InstanceClaim() { removeSocket(); }

void InstanceClaim::removeSocket() {
  std::error_code ignored;
  if (!socket_.empty()) fs::remove(std::exchange(socket_, {}), ignored);
  if (!ownFolder_.empty()) fs::remove(std::exchange(ownFolder_, {}), ignored);
}

std::variant<InstanceClaim, HandedOver, Unanswered> claimInstance(
    const fs::path& dataDirectory, const fs::path& runtimeDirectory,
    const std::vector<std::string>& arguments) {
  makeDataFolder(dataDirectory);
  // Arguments beyond all measure are left behind, and the window comes to the front all the same.
  const std::string message = instanceMessage(arguments).value_or(*instanceMessage({}));
  const auto deadline = Clock::now() + kPatience;
  try {
    for (;;) {
      Descriptor file = openLockFile(dataDirectory / kClaimFile);
      const fs::path socket = readSocket(file);
      if (auto lock = FileLock::tryTake(file)) {
        return InstanceClaim(std::move(*lock), dataDirectory, runtimeDirectory);
      }
      const Delivery delivery = deliver(socket, message);
      if (delivery == Delivery::taken) return HandedOver{};
      if (delivery == Delivery::takenWithoutWindow) return HandedOver{.lacksWindow = true};
      if (delivery == Delivery::silent || Clock::now() >= deadline) return Unanswered{};
      std::this_thread::sleep_for(kBetweenTries);
    }
  } catch (const std::system_error&) {
    return InstanceClaim();
  }
}

}  // namespace quillet
