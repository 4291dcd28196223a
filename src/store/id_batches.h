// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <vector>

namespace quillet {

/// "1,2,3", as the services take lists of IDs.
[[nodiscard]] std::string joinedIds(std::span<const std::int64_t> ids);

/// The IDs in their order, at most `size` (1 or more) to a joined list.
[[nodiscard]] std::vector<std::string> idBatches(std::span<const std::int64_t> ids,
                                                 std::size_t size);

}  // namespace quillet
