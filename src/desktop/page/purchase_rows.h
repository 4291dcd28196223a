// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>
#include <span>
#include <vector>

#include "analysis/purchase_series.h"
#include "desktop/models/app_row.h"
#include "store/records/in_app_purchase.h"
#include "system/locale_formats.h"

namespace quillet {

/// Something sold inside an app, as a table shows it.
struct PurchaseRow {
  QString item;
  QString billing;  ///< "per month", "once"; empty where it is unknown
  QString price;    ///< empty where it is unknown
  QString perYear;  ///< of subscriptions alone
  QString change;   ///< since it was first recorded; empty where it never changed
  PriceMove move = PriceMove::none;
  std::vector<RecordedPrice> history;  ///< what it has cost; empty where it never changed

  friend bool operator==(const PurchaseRow&, const PurchaseRow&) = default;
};

struct PurchaseGroup {
  QString title;  ///< empty where there is one group alone
  std::vector<PurchaseRow> rows;

  friend bool operator==(const PurchaseGroup&, const PurchaseGroup&) = default;
};

struct PurchaseTerms {
  const LocaleFormats& formats;
  Instant asOf;  ///< of the purchases
};

/// Subscriptions, what unlocks the app, everything else; each in the store's order. `recorded` is
/// what the library knows of the same app's purchases.
[[nodiscard]] std::vector<PurchaseGroup> purchaseGroups(std::span<const InAppPurchase> purchases,
                                                        std::span<const PurchaseSeries> recorded,
                                                        const PurchaseTerms& terms);

/// What was sold when it was last recorded, where the store was not asked.
[[nodiscard]] std::vector<InAppPurchase> lastRecorded(std::span<const PurchaseSeries> recorded);

/// The row in a sentence.
[[nodiscard]] QString spoken(const PurchaseRow& row);

}  // namespace quillet
