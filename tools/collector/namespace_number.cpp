// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "collector/namespace_number.h"

#include <filesystem>
#include <system_error>

namespace quillet {

/// A link to "net:[4026531840]".
std::string namespaceNumber(const std::string& kind) {
  std::error_code error;
  const std::string link = std::filesystem::read_symlink("/proc/self/ns/" + kind, error).string();
  std::string digits;
  for (const char c : link) {
    if (c >= '0' && c <= '9') digits += c;
  }
  return digits;
}

}  // namespace quillet
