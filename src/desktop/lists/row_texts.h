// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

#include "desktop/look/marks.h"
#include "desktop/models/app_row.h"

namespace quillet {

// What the parts of a row say.

[[nodiscard]] inline const QString& firstText(const AppRow& row) {
  return row.title.isEmpty() ? row.name : row.title;
}

[[nodiscard]] inline const QString& secondText(const AppRow& row) {
  return row.detail.isEmpty() ? row.seller : row.detail;
}

/// Of a price that changed.
[[nodiscard]] Pill pricePill(const PriceCell& price);
[[nodiscard]] Pill badgePill(const QString& text);

/// Beside the mark of a lowest price.
[[nodiscard]] const QString& lowText();
/// What a column of lows says of the row; empty where nothing is known.
[[nodiscard]] const QString& lowTextOf(const AppRow& row);

}  // namespace quillet
