// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include "store/records/app_enrichment.h"
#include "store/records/itunes_app.h"

namespace quillet {

/// Whether a Mac build holds no code for Apple silicon; absent where the catalog does not say.
[[nodiscard]] std::optional<bool> needsRosetta(const PlatformInfo& platform);

/// Writes down in the record what the catalog says of its Mac build, and its ratings where the
/// record's own are unknown.
void setPlatformFacts(ITunesApp& app, const PlatformFacts& facts);

}  // namespace quillet
