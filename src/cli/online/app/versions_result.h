// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <algorithm>
#include <cstdint>
#include <optional>
#include <span>
#include <string>

#include "analysis/release_history.h"
#include "cli/online/app/version_entry.h"
#include "store/records/platform.h"

namespace quillet {

/// An app's releases and what they say of its upkeep.
struct CLIVersionsPayload {
  std::int64_t trackId = 0;
  std::string name;
  std::optional<std::string> seller;  ///< for people; not in JSON
  Platform platform = Platform::mac;
  std::string country;
  ReleaseHistory history;
  std::size_t limit = 0;  ///< releases to list, the newest; all of them count

  [[nodiscard]] std::span<const VersionEntry> listed() const {
    return std::span(history.releases).first(std::min(limit, history.releases.size()));
  }
};

[[nodiscard]] std::string renderVersionsJson(const CLIVersionsPayload& payload);

}  // namespace quillet
