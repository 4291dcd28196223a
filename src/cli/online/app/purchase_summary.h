// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <optional>
#include <string>

#include "base/json_writer.h"
#include "store/records/in_app_purchase.h"
#include "system/locale_formats.h"

namespace quillet {

/// Something sold inside an app.
struct CLIPurchase {
  std::string name;
  std::optional<double> price;
  std::optional<std::string> formattedPrice;
  std::optional<std::string> currency;
  bool subscription = false;
  std::optional<std::string> period;  ///< "per month"
  std::optional<double> pricePerYear;
  std::optional<std::string> perYearText;  ///< for people; not in JSON
};

[[nodiscard]] CLIPurchase summaryOf(const InAppPurchase& purchase, const LocaleFormats& formats);

void writePurchase(JsonWriter& writer, const CLIPurchase& purchase);

}  // namespace quillet
