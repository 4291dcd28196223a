// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "analysis/purchase_kind.h"

#include <gtest/gtest.h>

namespace quillet {
namespace {

TEST(PurchaseKind, byName) {
  using enum PurchaseKind;
  const std::pair<PurchaseKind, std::vector<const char*>> rows[] = {
      // Also where a consumable word or one of an unlock stands beside it.
      {tip, {"Tip Jar", "BUY ME A LUNCH", "Thank you pack", "Lifetime coffee"}},
      // Also where a consumable word or a quantity stands beside it.
      {unlock, {"Lifetime Battle Pass", "1 Year License"}},
      {consumable, {"Pro Pack", "Top-Up", "1,500\xC2\xA0stars", "Five lives!", "All-Access-Pass"}},
      {unlock, {" Pro 2 ", "Pro2You", "Notes+ Plus", "Unlock themes"}},
      // Whole words alone count where longer ones hold them.
      {unclear, {"Compass", "Wildlife photos", "Pass\xC3\xA9 fonts", "Completed levels"}},
      {unclear, {"x500", "Night Theme", ""}},
  };
  for (const auto& [kind, names] : rows) {
    for (const char* name : names)
      EXPECT_EQ(textOf(kPurchaseKindTexts, purchaseKind({.name = name})),
                textOf(kPurchaseKindTexts, kind))
          << name;
  }
  EXPECT_EQ(purchaseKind({.name = "Tip Jar", .isSubscription = true}), subscription);
}

}  // namespace
}  // namespace quillet
