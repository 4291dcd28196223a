// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <cstdint>
#include <map>
#include <string>

#include "store/records/app_enrichment.h"
#include "store/records/platform.h"

namespace quillet {

/// What the answer says of its app on a platform; an answer without an app gives an empty
/// enrichment. Throws DecodingError when `body` is no catalog answer.
[[nodiscard]] AppEnrichment decodeEnrichment(const std::string& body, Platform platform);

/// Releases and needs of the Mac build of each app in the answer, by track ID; nothing
/// else is filled in. Throws likewise.
[[nodiscard]] std::map<std::int64_t, AppEnrichment> decodeMacBuilds(const std::string& body);

}  // namespace quillet
