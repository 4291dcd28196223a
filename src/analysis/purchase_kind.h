// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include "base/enum_table.h"
#include "store/records/in_app_purchase.h"

namespace quillet {

/// What a purchase is for.
enum class PurchaseKind {
  subscription,  ///< renews by itself
  unlock,        ///< bought once, opens the app or a part of it for good
  consumable,    ///< coins, packs, passes: bought again and again
  tip,           ///< a present to the maker
  unclear,
};

// Stored; never change.
inline constexpr EnumTable<PurchaseKind, 5> kPurchaseKindTexts{{
    {PurchaseKind::subscription, "subscription"},
    {PurchaseKind::unlock, "unlock"},
    {PurchaseKind::consumable, "consumable"},
    {PurchaseKind::tip, "tip"},
    {PurchaseKind::unclear, "unclear"},
}};
static_assert(isComplete(kPurchaseKindTexts, PurchaseKind::unclear));

/// Read from the subscription flag and, where it is not set, from the English words of the name:
/// the store publishes no more. A name without a telling word is unclear.
[[nodiscard]] PurchaseKind purchaseKind(const InAppPurchase& purchase);

}  // namespace quillet
