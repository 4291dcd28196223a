// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

#include "analysis/monetization.h"

namespace quillet {

/// How an app earns its money, as short as a pill wants it; empty where the price says it all.
[[nodiscard]] QString moneyText(MonetizationModel model);

/// The same in sentences; empty for the unknown one.
[[nodiscard]] QString moneySentence(MonetizationModel model);

}  // namespace quillet
