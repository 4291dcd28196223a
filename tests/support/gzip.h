// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <string>
#include <string_view>

namespace quillet {

/// `plain` as a gzip file.
[[nodiscard]] std::string gzip(std::string_view plain);

}  // namespace quillet
