// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "sandbox/amounts.h"

namespace quillet::sandbox {

void writeAmount(JsonWriter& json, Hundredths amount) {
  if (amount % 100 == 0) {
    json.value(amount / 100);
  } else {
    json.value(static_cast<double>(amount) / 100);
  }
}

void writePriceMembers(JsonWriter& json, Storefront storefront, Hundredths amount) {
  json.member("currencyCode", currencyOf(storefront));
  json.key("price");
  writeAmount(json, amount);
  json.member("priceFormatted", formatPrice(storefront, amount));
}

}  // namespace quillet::sandbox
