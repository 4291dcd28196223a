// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace quillet {

/// The text that a value of the settings file stands for, without its quotes and escapes:
/// `"a \"b\" \x263a"` is `a "b" ☺`. Absent where the value holds no text, as "@Invalid()".
[[nodiscard]] std::optional<std::string> iniValueText(std::string_view raw);

/// How a text is written as a value, in quotes with what needs it escaped; iniValueText reads it
/// back.
[[nodiscard]] std::string iniValue(std::string_view text);

}  // namespace quillet
