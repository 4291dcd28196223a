// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <cstddef>
#include <set>

#include "base/enum_table.h"
#include "export/app_report.h"

namespace quillet {

/// What a reader may do without; the overview is always there.
enum class ReportPart { description, purchases, versions, reviews, prices };

// Stored; never change.
inline constexpr EnumTable<ReportPart, 5> kReportPartWords{{
    {ReportPart::description, "description"},
    {ReportPart::purchases, "purchases"},
    {ReportPart::versions, "versions"},
    {ReportPart::reviews, "reviews"},
    {ReportPart::prices, "prices"},
}};
static_assert(isComplete(kReportPartWords, ReportPart::prices));

/// The report without these parts: no format says anything of them, not even that they are empty.
[[nodiscard]] AppReport withoutParts(AppReport report, const std::set<ReportPart>& parts);

/// Its beginning: at most so many releases, reviews and prices, the newest prices.
[[nodiscard]] AppReport beginningOf(AppReport report, std::size_t most);

}  // namespace quillet
