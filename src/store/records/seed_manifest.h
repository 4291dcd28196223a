// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "base/dates.h"

namespace quillet {

/// What the price-data server has.
struct SeedManifest {
  struct Entry {
    std::string country;              ///< two letters
    std::string file;                 ///< its name, beside the manifest; empty where it is not said
    std::int64_t apps = 0;            ///< how many are in it
    std::optional<Instant> lookedAt;  ///< when the store last told prices; absent: not said

    friend bool operator==(const Entry&, const Entry&) = default;
  };

  std::int64_t schema = 0;
  std::string generatedAt;  ///< when the data was written; empty where it is not said
  std::vector<Entry> storefronts;

  friend bool operator==(const SeedManifest&, const SeedManifest&) = default;
};

/// Entries without a country are passed over. Throws DecodingError for what is no manifest.
[[nodiscard]] SeedManifest decodeSeedManifest(const std::string& body);

/// When the store last told the prices of that storefront; absent where it is not said.
[[nodiscard]] std::optional<Instant> lastLookIn(const SeedManifest& manifest,
                                                const std::string& country);

/// Whether more days were missed since than are worth no word.
[[nodiscard]] bool isOldLook(std::optional<Instant> looked, Instant now);

}  // namespace quillet
