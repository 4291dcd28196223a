// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QStringList>

#include "analysis/price_totals.h"
#include "system/locale_formats.h"

namespace quillet {

/// What apps cost together, in parts: "$77.95", "€12.99", "1 unknown".
[[nodiscard]] QStringList sumParts(const std::vector<KnownPrice>& prices,
                                   const LocaleFormats& formats);

}  // namespace quillet
