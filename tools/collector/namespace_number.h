// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <string>

namespace quillet {

/// The number of the namespace of that kind ("net", "pid") that this process is in: containers of
/// one machine have others. Empty where the system does not tell.
[[nodiscard]] std::string namespaceNumber(const std::string& kind);

}  // namespace quillet
