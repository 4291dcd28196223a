// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace quillet {

/// An app or a bundle as the store offers it.
struct StoreItem {
  std::int64_t id = 0;
  std::string name;             ///< empty where the store did not say
  std::optional<double> price;  ///< in the storefront's currency
  std::optional<std::string> priceFormatted;
  std::optional<std::string> currency;         ///< ISO 4217
  std::optional<std::string> url;              ///< of the store's page
  std::optional<std::string> artworkTemplate;  ///< image address with {w}, {h} and {f}

  friend bool operator==(const StoreItem&, const StoreItem&) = default;
};

/// Several apps sold together.
struct AppBundleInfo {
  StoreItem bundle;
  std::vector<StoreItem> apps;

  friend bool operator==(const AppBundleInfo&, const AppBundleInfo&) = default;
};

}  // namespace quillet
