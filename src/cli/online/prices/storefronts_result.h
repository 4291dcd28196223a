// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "cli/streams.h"
#include "store/records/itunes_app.h"
#include "system/locale_formats.h"

namespace quillet {

/// What one app costs in one storefront. What is not known is absent.
struct CLIStorefrontPrice {
  std::string country;
  bool available = false;
  std::optional<double> price;
  std::optional<std::string> formattedPrice;
  std::optional<std::string> currency;
};

struct CLIStorefrontsPayload {
  std::int64_t trackId = 0;
  std::string name;
  std::vector<CLIStorefrontPrice> storefronts;
};

/// `app`: the storefront's record; absent where the app is not sold there.
[[nodiscard]] CLIStorefrontPrice storefrontPrice(std::string country,
                                                 const std::optional<ITunesApp>& app,
                                                 const LocaleFormats& formats);

[[nodiscard]] std::string renderStorefrontsJson(const CLIStorefrontsPayload& payload);
[[nodiscard]] std::string renderStorefrontsText(const CLIStorefrontsPayload& payload,
                                                const TextStyle& style);

}  // namespace quillet
