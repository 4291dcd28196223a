// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <string_view>

#include "store/records/app_enrichment.h"
#include "store/records/catalog_answer.h"

namespace quillet {

/// Whether the iPhone or iPad build of each app in the answer runs on a Mac, by track ID; an app
/// of which that is not said is left out. Throws DecodingError when `body` is no catalog answer.
[[nodiscard]] std::map<std::int64_t, bool> decodeMacCompatibilityFlags(const std::string& body);

/// What is said of the Mac build of each app in the answer, by track ID. Throws likewise.
[[nodiscard]] std::map<std::int64_t, PlatformFacts> decodePlatformFacts(const std::string& body);

/// Absent when nothing is said.
[[nodiscard]] std::optional<PlatformInfo> readPlatformInfo(const CatalogBlock& attributes);
[[nodiscard]] std::optional<AppRating> readRating(const CatalogBlock& attributes);

}  // namespace quillet
