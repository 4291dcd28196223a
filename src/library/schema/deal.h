// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "base/dates.h"
#include "library/schema/table.h"

namespace quillet {

/// An app whose latest recorded price change in a storefront is a drop. It repeats what the price
/// points say, so that a list of deals needs none of them.
struct Deal {
  RowId id = 0;
  std::int64_t trackId = 0;
  std::string country;
  std::optional<std::string> name;
  std::optional<std::string> seller;
  std::optional<std::string> kind;  ///< the store's kind word
  std::optional<std::string> currency;
  double wasPrice = 0;
  double nowPrice = 0;
  double percentOff = 0;  ///< with one decimal
  Instant changedOn{};
  double lowestPrice = 0;
  Instant lowestOn{};   ///< the latest time of the lowest price
  std::string edition;  ///< stamp of the price data that told it; empty: observed by this program

  friend bool operator==(const Deal&, const Deal&) = default;
};

template <>
inline constexpr auto kTable<Deal> = Table{
    "Deal", 4, KeyUse::reused,
    std::array<Index, 3>{Index{Index::Kind::unique, {"trackId", "country"}},
                         Index{Index::Kind::plain, {"country", "percentOff"}}},
    std::tuple{attribute("trackId", &Deal::trackId), attribute("country", &Deal::country),
               attribute("name", &Deal::name), attribute("seller", &Deal::seller),
               attribute("kind", &Deal::kind), attribute("currency", &Deal::currency),
               attribute("wasPrice", &Deal::wasPrice), attribute("nowPrice", &Deal::nowPrice),
               attribute("percentOff", &Deal::percentOff), attribute("changedOn", &Deal::changedOn),
               attribute("lowestPrice", &Deal::lowestPrice), attribute("lowestOn", &Deal::lowestOn),
               attribute("edition", &Deal::edition)}};

}  // namespace quillet
