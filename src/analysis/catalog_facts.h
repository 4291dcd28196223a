// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include "store/records/app_enrichment.h"
#include "store/records/itunes_app.h"

namespace quillet {

/// Whether a Mac build holds no code for Apple silicon; absent where the catalog does not say.
[[nodiscard]] std::optional<bool> needsRosetta(const PlatformInfo& platform);

/// Writes down in the record the catalog's rating where the record's own is unknown, and the spread
/// of it, which the catalog alone tells.
void setRating(ITunesApp& app, const AppRating& rating);

/// Writes down in the record what the catalog says of its Mac build, and of its ratings.
void setPlatformFacts(ITunesApp& app, const PlatformFacts& facts);

}  // namespace quillet
