// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <string>

#include "export/app_report.h"

namespace quillet {

// What a report says in more than one format. Nothing here is escaped.

inline constexpr std::string_view kNoPurchases = "No in-app purchases";

/// "US storefront".
[[nodiscard]] std::string storefrontText(const AppReport& report);

/// "Prices in USD."; empty where the currency is.
[[nodiscard]] std::string currencyNote(const std::string& currency);

/// "2.1 — 2026-11-02".
[[nodiscard]] std::string releaseTitle(const VersionEntry& entry);

/// What a review gave: "★★★☆☆"; empty where the store did not say.
[[nodiscard]] std::string starsText(const AppReview& review);

/// Who wrote it and when: "Ada · 2026-11-02 · edited".
[[nodiscard]] std::string bylineText(const AppReview& review);

}  // namespace quillet
