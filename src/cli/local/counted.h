// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace quillet {

/// "1 app", "2 apps".
[[nodiscard]] std::string counted(std::size_t count, std::string_view thing);

}  // namespace quillet
