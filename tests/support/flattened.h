// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <string>
#include <string_view>

#include "base/text.h"

namespace quillet {

/// JSON without line feeds and what indents the lines after them.
inline std::string flattened(std::string_view json) {
  std::string flat;
  for (const std::string_view line : split(json, '\n')) flat += trimmed(line);
  return flat;
}

}  // namespace quillet
