// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/models/price_sums.h"

#include <QCoreApplication>

namespace quillet {

QStringList sumParts(const std::vector<KnownPrice>& prices, const LocaleFormats& formats) {
  const PriceTotals totals = priceTotals(prices);
  QStringList parts;
  for (const CurrencyTotal& each : totals.sums)
    parts << QString::fromStdString(formats.currency(each.amount, each.currency));
  if (totals.unknown > 0)
    parts << QCoreApplication::translate("Rows", "%1 unknown").arg(totals.unknown);
  return parts;
}

}  // namespace quillet
