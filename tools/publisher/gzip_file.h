// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <string>
#include <string_view>

namespace quillet {

/// The bytes as a gzip file without a name or time in it: the same for the same bytes.
[[nodiscard]] std::string gzipped(std::string_view bytes);

}  // namespace quillet
