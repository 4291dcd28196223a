// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "library/schema/deal.h"
#include "store/records/price_seed_reader.h"

namespace quillet {

/// A storefront's published prices, ready to be kept: apps by ascending number, which spares the
/// database most of the work of a random order, and nothing of the file's text but what deals show.
struct StorefrontSeed {
  struct App {
    std::int64_t trackId = 0;
    std::optional<std::string> currency;
    std::size_t firstPoint = 0;
    std::size_t pointCount = 0;
    std::optional<Deal> deal;
  };

  std::string country;
  std::string stamp;
  std::vector<App> apps;
  std::vector<PriceSeed::Point> points;
};

/// Reads the whole file. Throws PriceSeedError as the reader does.
[[nodiscard]] StorefrontSeed collectSeed(PriceSeedReader reader, std::string country);

}  // namespace quillet
