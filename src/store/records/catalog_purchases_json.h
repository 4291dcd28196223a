// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <cstdint>
#include <map>
#include <string_view>
#include <vector>

#include "store/records/catalog_answer.h"
#include "store/records/in_app_purchase.h"

namespace quillet {

/// What is sold inside each app of the answer, by track ID. An app whose entry names no purchases
/// sells nothing inside; an app without an entry is not in the map. Throws DecodingError when
/// `body` is no catalog answer.
[[nodiscard]] std::map<std::int64_t, std::vector<InAppPurchase>> decodePurchases(
    const std::string& body);

/// The purchases among resources, in order; one without an ID is left out.
[[nodiscard]] std::vector<InAppPurchase> readPurchases(const std::vector<CatalogBlock>& resources);

}  // namespace quillet
