// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace quillet {

// What a second start sends to the first one: a line that names the form and the length of what
// follows, then the arguments, each with a NUL at its end.

/// Absent where the arguments are more than the first one would take.
[[nodiscard]] std::optional<std::string> instanceMessage(const std::vector<std::string>& arguments);

// What the first one answers: that the arguments were taken, with or without the window that they
// ask for, or before it that it cannot serve yet. When it ends, it closes the connection instead.
// Never change them.
inline constexpr char kInstanceTakes = '+';
inline constexpr char kInstanceCannotShow = '-';
inline constexpr char kInstanceKeepsWaiting = '.';

struct IncompleteMessage {};
struct BadMessage {};

/// What has arrived so far: not all of it, the arguments, or something else than such a message.
[[nodiscard]] std::variant<IncompleteMessage, BadMessage, std::vector<std::string>>
readInstanceMessage(std::string_view received);

}  // namespace quillet
