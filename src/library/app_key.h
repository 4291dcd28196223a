// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <compare>
#include <cstdint>
#include <string>

namespace quillet {

/// What tells apps apart in the library: the store's number and the storefront.
struct AppKey {
  std::int64_t trackId = 0;
  std::string country;

  friend auto operator<=>(const AppKey&, const AppKey&) = default;
};

/// The key of any row that is about one app.
template <typename Row>
[[nodiscard]] AppKey keyOf(const Row& row) {
  return {row.trackId, row.country};
}

}  // namespace quillet
