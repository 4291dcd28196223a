// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "cli/local/scratch_directory.h"

#include <fmt/format.h>
#include <sys/stat.h>

#include <random>
#include <utility>

namespace quillet {

namespace {

namespace fs = std::filesystem;

/// A random UUID (RFC 4122, version 4) in upper case.
std::string newUuid() {
  std::random_device random;
  const std::uint32_t first = random();
  const std::uint32_t second = random();
  const std::uint32_t third = random();
  const std::uint32_t fourth = random();
  return fmt::format("{:08X}-{:04X}-4{:03X}-{:04X}-{:04X}{:08X}", first, second >> 16,
                     second & 0xFFF, 0x8000 | (third & 0x3FFF), third >> 16, fourth);
}

}  // namespace

std::optional<ScratchDirectory> ScratchDirectory::create(const fs::path& parent) {
  std::error_code error;
  fs::create_directories(parent, error);
  fs::path path = parent / ("quillet-cli-" + newUuid());
  if (mkdir(path.c_str(), S_IRWXU) != 0) return {};
  return ScratchDirectory(std::move(path));
}

ScratchDirectory::ScratchDirectory(ScratchDirectory&& other) noexcept
    : path_(std::exchange(other.path_, {})) {}

ScratchDirectory::~ScratchDirectory() {
  if (path_.empty()) return;
  std::error_code error;
  fs::remove_all(path_, error);
}

}  // namespace quillet
