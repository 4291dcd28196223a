// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/lists/row_texts.h"

#include <QCoreApplication>

namespace quillet {

Pill pricePill(const PriceCell& price) {
  return {price.move == PriceMove::up ? PillKind::up : PillKind::down, price.text, {}};
}

Pill badgePill(const QString& text) { return {PillKind::neutral, text, {}}; }

const QString& lowText() {
  static const QString text = QCoreApplication::translate("Rows", "lowest");
  return text;
}

const QString& lowTextOf(const AppRow& row) {
  return row.marks.testFlag(RowMark::atLowest) ? lowText() : row.lowText;
}

}  // namespace quillet
