// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "fuzzing.h"
#include "store/records/price_seed_error.h"
#include "store/records/price_seed_reader.h"
#include "store/records/seed_manifest.h"

using namespace quillet;

namespace {

void requireOrder(std::span<const PriceSeed::Point> points) {
  require(!points.empty(), "an app has a price");
  for (std::size_t i = 0; i < points.size(); ++i) {
    require(points[i].price >= 0 && points[i].price <= 1e9, "a price is a price");
    require(i == 0 || points[i - 1].day < points[i].day, "one point a day, in their order");
  }
}

}  // namespace

void quillet::tryInput(std::string_view input) {
  const std::string body(input);
  readOrRefuse([&] {
    for (const SeedManifest::Entry& entry : decodeSeedManifest(body).storefronts) {
      require(!entry.country.empty(), "a storefront is named");
    }
  });
  readOrRefuse<PriceSeedError>([&] {
    PriceSeedReader reader(TextBuffer::of(body), "us");
    std::size_t apps = 0;
    while (reader.next()) {
      ++apps;
      require(reader.entry().trackId > 0, "an app has a number");
      const auto name = reader.entry().name.text();
      require(!name || isValidUtf8(*name), "names are UTF-8");
      requireOrder(reader.points());
    }
    require(apps > 0, "a file without apps is an error");
  });
}
