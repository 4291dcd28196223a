// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "system/environment.h"

#include <cstdlib>

namespace quillet {

std::optional<std::string> ProcessEnvironment::get(std::string_view name) const {
  const char* value = std::getenv(std::string(name).c_str());
  if (value == nullptr || *value == '\0') return {};
  return value;
}

}  // namespace quillet
