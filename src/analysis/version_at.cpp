// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "analysis/version_at.h"

namespace quillet {

std::string versionAt(std::span<const VersionEntry> history, Instant date) {
  const VersionEntry* newest = nullptr;
  for (const VersionEntry& entry : history) {
    if (entry.releaseDate > date) continue;
    if (newest == nullptr || entry.releaseDate > newest->releaseDate) newest = &entry;
  }
  return newest == nullptr ? std::string() : newest->version;
}

}  // namespace quillet
