// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <filesystem>

#include "desktop/services/state_file.h"

namespace quillet {

/// The folder that was last chosen for a purpose; `otherwise` where there is none any more.
[[nodiscard]] std::filesystem::path lastFolder(const StateFile& state, const QString& purpose,
                                               const std::filesystem::path& otherwise);
void rememberFolder(StateFile& state, const QString& purpose, const std::filesystem::path& folder);

}  // namespace quillet
