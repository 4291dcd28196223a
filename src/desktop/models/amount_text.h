// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QLocale>
#include <QString>
#include <optional>

namespace quillet {

/// An amount of money as a person types it: with a point or a comma before the fraction, whatever
/// the locale, with or without what groups digits, and with a currency's sign or code at either
/// end. A lone comma or point before three digits groups them only where the locale's does. Absent
/// where it is no amount, or one below 0.
[[nodiscard]] std::optional<double> readAmount(const QString& text, const QLocale& locale);

/// The amount alone, as the locale writes it; reads back to the same.
[[nodiscard]] QString amountText(double amount, const QLocale& locale);

}  // namespace quillet
