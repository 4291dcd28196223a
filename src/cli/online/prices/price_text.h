// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <optional>
#include <string>

#include "system/locale_formats.h"

namespace quillet {

/// "$4.99", or "Free"; the plain number where the currency is not known.
[[nodiscard]] std::string priceText(double price, const std::optional<std::string>& currency,
                                    const LocaleFormats& formats);

/// In the form of all other amounts of a page, where that can be told: the store's text is in the
/// storefront's.
[[nodiscard]] std::string amountText(std::optional<double> price,
                                     const std::optional<std::string>& currency,
                                     const std::optional<std::string>& storeText,
                                     const LocaleFormats& formats);

}  // namespace quillet
