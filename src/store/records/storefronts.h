// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <array>
#include <string_view>

namespace quillet {

/// The storefronts with published price data, in their order everywhere.
inline constexpr std::array<std::string_view, 10> kTrackedStorefronts{"us", "gb", "de", "fr", "ca",
                                                                      "au", "jp", "it", "es", "nl"};

}  // namespace quillet
