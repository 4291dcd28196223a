// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <string>

#include "store/records/in_app_purchase.h"

namespace quillet {

/// What tells a purchase apart within its app, for good: the store's product identifier, else the
/// name, "|" and the period. Stored; never change.
[[nodiscard]] std::string purchaseKey(const InAppPurchase& purchase);

}  // namespace quillet
