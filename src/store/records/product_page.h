// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace quillet {

/// What an app's page in the store tells beyond search and lookup. Each part may be empty.
struct ProductPage {
  std::vector<std::string> macScreenshots;  ///< addresses, in the page's order
  std::vector<std::string> description;     ///< its paragraphs
  std::vector<std::int64_t> bundleIds;      ///< of the bundles that hold the app

  friend bool operator==(const ProductPage&, const ProductPage&) = default;
};

/// Parts of a page that are missing are empty. Throws UnreadablePage where it holds no data at all.
[[nodiscard]] ProductPage decodeProductPage(std::string_view html);

}  // namespace quillet
