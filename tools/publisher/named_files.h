// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <sys/types.h>

#include <filesystem>
#include <functional>

#include "system/descriptor.h"
#include "system/file_lock.h"

namespace quillet {

// What is asked of the system about files, with errors that name them: all of it throws
// std::system_error.

/// Throws what errno says.
[[noreturn]] void failAtFile(const std::filesystem::path& file);

/// `mode`: the rights of a file that is made.
[[nodiscard]] Descriptor openedFile(const std::filesystem::path& file, int flags, mode_t mode = 0);

/// Calls `pause` again and again while another has the folder's lock; what it throws ends the
/// waiting.
[[nodiscard]] FileLock lockedFolder(const std::filesystem::path& folder,
                                    const std::function<void()>& pause);

}  // namespace quillet
