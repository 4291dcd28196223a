// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QStringList>

#include "desktop/models/list_state.h"
#include "desktop/services/installed_apps.h"
#include "system/time_zone.h"

namespace quillet {

/// "212 bundles read, 120 matched"
[[nodiscard]] QString scanCounts(std::size_t bundles, std::size_t matched);

/// When the last scan was and what it found; empty where there was none.
[[nodiscard]] QString lastScanText(const std::optional<LastScan>& scan, Instant now,
                                   const UtcOffsetAt& zone);

/// What went wrong in a scan, as a sentence; empty for nothing.
[[nodiscard]] QString scanProblem(const ScanOutcome& outcome);

/// How it stands, above the rows.
[[nodiscard]] ListState scanState(const InstalledApps& apps);

/// Why there is no app of the store: "Not in the us storefront".
[[nodiscard]] QString reasonText(const FoundApp& app, const std::string& country);

/// Whether the store has a newer version than the one that is installed, which the user did not
/// skip.
[[nodiscard]] bool hasUpdate(const FoundApp& app);

}  // namespace quillet
