// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include "desktop/sections/compare/compare_sheet.h"
#include "export/comparison_report.h"

namespace quillet {

/// What is seen of a comparison, as a document. `storefront`: of all its apps.
[[nodiscard]] ComparisonReport documentOf(const CompareSheet& sheet, const std::string& storefront,
                                          const QString& day);

}  // namespace quillet
