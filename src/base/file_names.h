// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <string>
#include <string_view>

namespace quillet {

/// A part of a file's name made of an app's: in lower case, with "-" for whatever is no letter or
/// digit, cut to 40 characters. It names no folder and starts no path; empty for an empty name.
[[nodiscard]] std::string fileNameOf(std::string_view name);

}  // namespace quillet
