// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <SQLiteCpp/Database.h>

#include <string>
#include <vector>

#include "analysis/rank_record.h"

namespace quillet {

// What is recorded of the charts of a whole storefront, chart by chart: all at once would take long
// enough to be noticed after some years.

/// The keys of the charts that are recorded.
[[nodiscard]] std::vector<std::string> recordedChartKeys(SQLite::Database& database,
                                                         const std::string& country);

/// The orders of one chart by day. A row that cannot be read counts as a day without a record.
[[nodiscard]] std::vector<RecordedRanking> rankingsOf(SQLite::Database& database,
                                                      const std::string& chartKey);

}  // namespace quillet
