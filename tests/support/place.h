// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <filesystem>
#include <string>

namespace quillet {

/// The absolute path of a place that quillet_test_place() has named, wherever the test is started.
inline std::string placeOf(const char* fromProgram) {
  const auto program = std::filesystem::read_symlink("/proc/self/exe");
  return (program.parent_path() / fromProgram).lexically_normal().string();
}

}  // namespace quillet
