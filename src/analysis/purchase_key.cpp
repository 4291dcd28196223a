// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "analysis/purchase_key.h"

namespace quillet {

std::string purchaseKey(const InAppPurchase& purchase) {
  if (!purchase.productId.empty()) return purchase.productId;
  return purchase.name + '|' + purchase.recurringSubscriptionPeriod.value_or("");
}

}  // namespace quillet
