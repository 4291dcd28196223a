// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <string_view>

namespace quillet {

inline constexpr std::string_view kUserAgentHeader = "User-Agent";

/// What requests to the store's public web host call themselves. The host serves its pages and its
/// catalog to desktop browsers only; anyone else gets status 429.
inline constexpr std::string_view kBrowserUserAgent =
    "Mozilla/5.0 (Macintosh; Intel Mac OS X 10_15_7) AppleWebKit/605.1.15 "
    "(KHTML, like Gecko) Version/17.0 Safari/605.1.15";

}  // namespace quillet
