// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace quillet {

/// Puts a new file into a folder: under `name`, or with a number before its ending where that is
/// taken: "pagewren-mac-01 (2).jpg". One that holds the same bytes already counts as the new one.
/// Returns the file. Throws FileError.
std::filesystem::path addFile(const std::filesystem::path& folder, const std::string& name,
                              std::string_view bytes);

}  // namespace quillet
