// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <optional>
#include <string>

#include "desktop/services/arguments.h"

namespace quillet {

/// What a "quillet:" link asks for, which anybody may have written and which only ever leads
/// somewhere: "quillet:app/148?country=de" to an app, "quillet:section/deals" to a section,
/// "quillet:search?term=plain%20text" to a search. Absent for any other text.
[[nodiscard]] std::optional<DesktopArguments> readQuilletLink(const std::string& text);

}  // namespace quillet
