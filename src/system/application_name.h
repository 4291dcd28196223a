// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <string_view>

namespace quillet {

/// As people read it.
inline constexpr std::string_view kApplicationName = "Quillet";

/// By what a desktop knows the application: the name of its desktop entry, without ".desktop", and
/// that of its icon.
inline constexpr std::string_view kApplicationId = "quillet";

}  // namespace quillet
