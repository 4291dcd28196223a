// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "system/endpoints.h"
#include "system/environment.h"

namespace quillet {

/// What the collectors whose requests the store counts together call the file that they share: it
/// is another one in another network of this machine's, through another proxy, or for another
/// store.
[[nodiscard]] std::string nameOfWayOut(const Endpoints& endpoints);

/// Where that file may be: the folder QUILLET_COLLECTOR_BUDGET_DIR, or else those that all users of
/// a machine have in common.
[[nodiscard]] std::vector<std::filesystem::path> sharedFolders(const Environment& environment);

}  // namespace quillet
