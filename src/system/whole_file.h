// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <cstddef>
#include <filesystem>
#include <string>
#include <string_view>

namespace quillet {

/// The bytes of a file. Throws FileError where it cannot be read or holds more than `limit` bytes.
[[nodiscard]] std::string readWholeFile(const std::filesystem::path& file, std::size_t limit);

/// Makes the file, or puts `content` in the place of what it held: whole and on the disk, or not at
/// all. Permissions of an old file stay, and so does a link to it. Throws FileError; then the old
/// file is as it was.
void replaceFile(const std::filesystem::path& file, std::string_view content);

}  // namespace quillet
