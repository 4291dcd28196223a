// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "sandbox/storefronts.h"

#include <algorithm>
#include <array>
#include <cassert>

#include "base/enum_index.h"
#include "base/text.h"

namespace quillet::sandbox {

namespace {

enum class Currency { usd, gbp, eur, cad, aud, jpy };

struct StorefrontRow {
  std::string_view code;
  Currency currency;
  std::string_view currencyCode;
  std::string_view freeWord;
  std::string_view before;  // what stands before the amount
  std::string_view after;
  char point;
  char thousands;
};

#define QUILLET_NBSP "\xC2\xA0"

constexpr std::array<StorefrontRow, kStorefrontCount> kRows{{
    {"us", Currency::usd, "USD", "Free", "$", "", '.', ','},
    {"gb", Currency::gbp, "GBP", "Free", "£", "", '.', ','},
    {"de", Currency::eur, "EUR", "Gratis", "", QUILLET_NBSP "€", ',', '.'},
    {"fr", Currency::eur, "EUR", "Gratuit", "", QUILLET_NBSP "€", ',', ' '},
    {"ca", Currency::cad, "CAD", "Free", "$", "", '.', ','},
    {"au", Currency::aud, "AUD", "Free", "$", "", '.', ','},
    {"jp", Currency::jpy, "JPY", "無料", "¥", "", '.', ','},
    {"it", Currency::eur, "EUR", "Gratis", "", QUILLET_NBSP "€", ',', '.'},
    {"es", Currency::eur, "EUR", "Gratis", "", QUILLET_NBSP "€", ',', '.'},
    {"nl", Currency::eur, "EUR", "Gratis", "€" QUILLET_NBSP, "", ',', '.'},
}};

#undef QUILLET_NBSP

/// One price point in hundredths of each currency, in the order of Currency.
using PricePoint = std::array<int, 6>;

constexpr auto kPricePoints = std::to_array<PricePoint>({
    {0, 0, 0, 0, 0, 0},
    {99, 99, 99, 129, 149, 15000},
    {199, 179, 199, 279, 299, 30000},
    {299, 249, 299, 399, 449, 50000},
    {399, 349, 399, 549, 599, 60000},
    {499, 449, 499, 699, 799, 80000},
    {599, 549, 599, 799, 999, 90000},
    {699, 599, 699, 999, 1099, 100000},
    {799, 699, 799, 1099, 1299, 120000},
    {899, 799, 899, 1299, 1399, 130000},
    {999, 899, 999, 1399, 1499, 150000},
    {1299, 1199, 1299, 1799, 1999, 200000},
    {1499, 1299, 1499, 1999, 2299, 220000},
    {1999, 1799, 1999, 2799, 2999, 300000},
    {2499, 2199, 2499, 3499, 3999, 380000},
    {2999, 2699, 2999, 3999, 4499, 450000},
    {3499, 2999, 3499, 4899, 5499, 530000},
    {3999, 3499, 3999, 5499, 5999, 600000},
    {4999, 4499, 4999, 6999, 7999, 800000},
    {5999, 5399, 5999, 8299, 8999, 900000},
    {6999, 6299, 6999, 9499, 10499, 1050000},
    {7999, 6999, 7999, 10999, 11999, 1200000},
    {9999, 8999, 9999, 13999, 14999, 1500000},
    {14999, 12999, 14999, 19999, 22999, 2200000},
    {19999, 17999, 19999, 27999, 29999, 3000000},
    {29999, 26999, 29999, 39999, 44999, 4500000},
    {49999, 44999, 49999, 69999, 79999, 7500000},
    {99999, 89999, 109999, 139999, 149999, 15000000},
});

const StorefrontRow& rowOf(Storefront storefront) { return kRows[indexOf(storefront)]; }

const PricePoint* pricePoint(int usCents) {
  const auto found = std::ranges::find_if(
      kPricePoints, [&](const PricePoint& point) { return point.front() == usCents; });
  return found == kPricePoints.end() ? nullptr : &*found;
}

std::string grouped(std::int64_t number, char separator) {
  std::string digits = std::to_string(number);
  for (auto place = static_cast<std::ptrdiff_t>(digits.size()) - 3; place > 0; place -= 3)
    digits.insert(static_cast<std::size_t>(place), 1, separator);
  return digits;
}

/// Two letters, but for those of ISO 3166 that never name a country.
bool mayBeCountry(std::string_view lower) {
  const auto isLetter = [](char c) { return c >= 'a' && c <= 'z'; };
  return lower.size() == 2 && std::ranges::all_of(lower, isLetter) && lower[0] != 'x' &&
         lower != "zz";
}

}  // namespace

std::optional<Storefront> storefrontWithCode(std::string_view code) {
  const auto found = std::ranges::find(kRows, code, &StorefrontRow::code);
  if (found == kRows.end()) return std::nullopt;
  return static_cast<Storefront>(found - kRows.begin());
}

std::optional<Storefront> storefrontOf(std::string_view code) {
  const std::string lower = lowerAscii(code);
  if (const auto storefront = storefrontWithCode(lower)) return storefront;
  if (mayBeCountry(lower)) return Storefront::us;
  return std::nullopt;
}

std::string_view codeOf(Storefront storefront) { return rowOf(storefront).code; }

std::string_view currencyOf(Storefront storefront) { return rowOf(storefront).currencyCode; }

bool isPricePoint(int usCents) { return pricePoint(usCents) != nullptr; }

int pricePointUpTo(int usCents) {
  int best = 0;
  for (const PricePoint& point : kPricePoints) {
    if (point.front() <= usCents) best = point.front();
  }
  return best;
}

Hundredths priceIn(Storefront storefront, int usCents) {
  const PricePoint* point = pricePoint(usCents);
  assert(point && "no such price point");
  return (*point)[static_cast<std::size_t>(rowOf(storefront).currency)];
}

std::string formatPrice(Storefront storefront, Hundredths amount) {
  const StorefrontRow& row = rowOf(storefront);
  if (amount == 0) return std::string(row.freeWord);
  std::string text(row.before);
  text += grouped(amount / 100, row.thousands);
  if (row.currency != Currency::jpy) text += fmt::format("{}{:02}", row.point, amount % 100);
  text += row.after;
  return text;
}

}  // namespace quillet::sandbox
