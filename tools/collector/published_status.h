// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "base/dates.h"
#include "store/records/seed_manifest.h"

namespace quillet {

/// A storefront that readers are told of.
struct PublishedStorefront {
  std::string country;
  std::int64_t apps = 0;
  std::optional<Instant> stamp;   ///< of its file; absent where that cannot be read
  std::optional<Instant> looked;  ///< absent where it is not told
};

/// What is published in a folder.
struct PublishedStatus {
  std::filesystem::path folder;
  std::vector<PublishedStorefront> storefronts;
};

/// What readers are told of those files; nothing where nothing is published, or nothing that can be
/// read.
[[nodiscard]] std::vector<SeedManifest::Entry> publishedEntries(const std::filesystem::path& files);

/// `folder`: the one that `publish` is told.
[[nodiscard]] PublishedStatus statusOfPublished(const std::filesystem::path& folder);

}  // namespace quillet
