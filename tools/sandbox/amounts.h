// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include "base/json_writer.h"
#include "sandbox/storefronts.h"

namespace quillet::sandbox {

/// An amount of money as a JSON number, whole where it has no hundredths.
void writeAmount(JsonWriter& json, Hundredths amount);

/// The members that tell of a price: "currencyCode", "price" and "priceFormatted".
void writePriceMembers(JsonWriter& json, Storefront storefront, Hundredths amount);

}  // namespace quillet::sandbox
