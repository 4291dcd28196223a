// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "store/records/display_price.h"

namespace quillet {

std::string displayPrice(const ITunesApp& app, const LocaleFormats& formats) {
  if (app.formattedPrice && !app.formattedPrice->empty()) return *app.formattedPrice;
  if (app.price.value_or(0) == 0) return std::string(kFreeText);
  return formats.currency(*app.price, app.currency.value_or(""));
}

}  // namespace quillet
