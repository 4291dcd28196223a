// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "cli/online/prices/price_text.h"

#include "base/text.h"
#include "store/records/display_price.h"

namespace quillet {

std::string priceText(double price, const std::optional<std::string>& currency,
                      const LocaleFormats& formats) {
  if (price == 0) return std::string(kFreeText);
  return printable(formats.currency(price, currency.value_or("")));
}

std::string amountText(std::optional<double> price, const std::optional<std::string>& currency,
                       const std::optional<std::string>& storeText, const LocaleFormats& formats) {
  if (price.value_or(0) == 0 || !currency) return shown(storeText);
  return printable(formats.currency(*price, *currency));
}

}  // namespace quillet
