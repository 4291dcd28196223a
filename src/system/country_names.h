// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <string>
#include <string_view>

namespace quillet {

/// What a country is called in a language ("en", "de_DE"): "Côte d’Ivoire". The code itself, in
/// upper case, where the language has no name for it. `code` as of isCountryCode().
[[nodiscard]] std::string countryName(std::string_view code, const std::string& language);

/// What people pay with there, likewise: "Japanese Yen". Empty where nothing is known of it.
[[nodiscard]] std::string currencyName(std::string_view code, const std::string& language);

/// What money is called, by its code (ISO 4217); the code itself where nobody calls it anything.
[[nodiscard]] std::string moneyName(const std::string& currency, const std::string& language);

}  // namespace quillet
