// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

#include "cli/streams.h"

namespace quillet {

/// "40 watching", or "25 of 40 watching" where not all are shown.
[[nodiscard]] std::string listHeader(std::size_t shown, std::size_t total, std::string_view what);

/// A name in a column of `width`, with a blank at its end at least: a longer name is cut.
[[nodiscard]] std::string nameColumn(std::string_view name, std::size_t width,
                                     const TextStyle& style);

/// "us, mac": a storefront and a platform, as far as they are known.
[[nodiscard]] std::string storeText(const std::optional<std::string>& country,
                                    const std::optional<std::string>& platform);

}  // namespace quillet
