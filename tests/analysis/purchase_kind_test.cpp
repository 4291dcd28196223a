// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "analysis/purchase_kind.h"

#include <gtest/gtest.h>

namespace quillet {
namespace {

TEST(PurchaseKind, byName) {
  using enum PurchaseKind;
  const std::pair<const char*, PurchaseKind> rows[] = {
      {"Tip Jar", tip},
      {"BUY ME A LUNCH", tip},
      {"Thank you pack", tip},           // before the consumable word
      {"Lifetime coffee", tip},          // before the unlock word
      {"Lifetime Battle Pass", unlock},  // before the consumable word
      {"1 Year License", unlock},        // before the quantity
      {"Pro Pack", consumable},          // before the upgrade word
      {"Top-Up", consumable},
      // Quantities.
      {"1,500\xC2\xA0stars", consumable},
      {" Pro 2 ", unlock},
      {"Pro2You", unlock},
      {"x500", unclear},
      // Whole words.
      {"Five lives!", consumable},
      {"All-Access-Pass", consumable},
      {"Compass", unclear},
      {"Wildlife photos", unclear},
      {"Pass\xC3\xA9 fonts", unclear},
      {"Notes+ Plus", unlock},
      {"Completed levels", unclear},
      // Weak words.
      {"Unlock themes", unlock},
      {"Night Theme", unclear},
      {"", unclear},
  };
  for (const auto& [name, kind] : rows) {
    const InAppPurchase purchase{.name = name};
    EXPECT_EQ(textOf(kPurchaseKindTexts, purchaseKind(purchase)), textOf(kPurchaseKindTexts, kind))
        << name;
  }
  EXPECT_EQ(purchaseKind({.name = "Tip Jar", .isSubscription = true}), subscription);
}

}  // namespace
}  // namespace quillet
