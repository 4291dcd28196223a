// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <span>
#include <string>

#include "store/records/app_enrichment.h"

namespace quillet {

/// The version that was the newest one on a date: what a review of that date was probably written
/// for. Empty where the history does not reach back so far.
[[nodiscard]] std::string versionAt(std::span<const VersionEntry> history, Instant date);

}  // namespace quillet
