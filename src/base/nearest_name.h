// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <optional>
#include <span>
#include <string_view>

namespace quillet {

/// The name that someone who typed `text` most likely meant: one that it begins or that it differs
/// from by a few letters, whatever their case. Absent where none is close, and for a text of fewer
/// than three letters.
[[nodiscard]] std::optional<std::string_view> nearestName(std::string_view text,
                                                          std::span<const std::string_view> names);

}  // namespace quillet
