// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "base/dates.h"
#include "cli/local/list_payload.h"
#include "cli/local/local_call.h"

namespace quillet {

/// One app in a collection.
struct CLICollectionEntry {
  std::int64_t trackId = 0;
  std::string name;
  std::optional<std::string> seller;
  std::optional<std::string> country;
  std::optional<std::string> platform;
  std::optional<std::string> note;
  std::optional<Instant> addedAt;
};

struct CLICollection {
  std::string name;
  std::optional<std::string> symbol;
  std::optional<Instant> createdAt;
  std::vector<CLICollectionEntry> apps;  ///< the newest first
};

using CLICollections = CLIListPayload<CLICollection>;

/// `quillet collections`: all of them with their apps, by name.
[[nodiscard]] CLICollections readCollections(const LocalCall& call);

/// The collections and their sizes.
[[nodiscard]] std::string renderCollectionsJson(const CLICollections& collections);

/// One collection and what is inside.
[[nodiscard]] std::string renderCollectionJson(const CLICollection& collection);

}  // namespace quillet
