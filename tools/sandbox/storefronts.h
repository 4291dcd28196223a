// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <bitset>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace quillet::sandbox {

enum class Storefront { us, gb, de, fr, ca, au, jp, it, es, nl };

inline constexpr std::size_t kStorefrontCount = 10;

/// The storefronts in which something is sold, by their place in the enumeration.
using StorefrontSet = std::bitset<kStorefrontCount>;

inline constexpr StorefrontSet kEverywhere = (1U << kStorefrontCount) - 1;

/// Reads a two-letter code in any case. The other countries' storefronts sell what the US one
/// sells, so that a user of any locale finds something; absent for what is no country.
[[nodiscard]] std::optional<Storefront> storefrontOf(std::string_view code);

/// The storefront that is written just so, as "us"; absent for any other text.
[[nodiscard]] std::optional<Storefront> storefrontWithCode(std::string_view code);

/// Two letters, lower case.
[[nodiscard]] std::string_view codeOf(Storefront storefront);

/// ISO 4217.
[[nodiscard]] std::string_view currencyOf(Storefront storefront);

/// An amount in hundredths of the storefront's currency, yen included.
using Hundredths = std::int64_t;

/// What a price of so many US cents is in the storefront, by the table of price points. The price
/// must be one of that table; see isPricePoint().
[[nodiscard]] Hundredths priceIn(Storefront storefront, int usCents);

[[nodiscard]] bool isPricePoint(int usCents);

/// The highest price point that is not above so many US cents.
[[nodiscard]] int pricePointUpTo(int usCents);

/// The price as the store writes it there: "$4.99", "2,99 €", "¥500"; the word for free for 0.
[[nodiscard]] std::string formatPrice(Storefront storefront, Hundredths amount);

}  // namespace quillet::sandbox
