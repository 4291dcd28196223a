// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <filesystem>
#include <vector>

namespace quillet {

/// The Applications folders that hold a Mac app, in the order of their names, of the disks mounted
/// directly in `mediaFolders`: to be proposed where none is chosen yet. What cannot be read is
/// passed over. It blocks as scanApplications() does.
[[nodiscard]] std::vector<std::filesystem::path> applicationsFoldersOn(
    const std::vector<std::filesystem::path>& mediaFolders);

}  // namespace quillet
