// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "cli/local/previous_chart.h"

#include <fmt/format.h>

#include "base/numbers.h"
#include "cli/cli_error.h"
#include "cli/local/local_statement.h"
#include "library/schema/keyed_archive.h"
#include "library/schema/reference_date.h"

namespace quillet {

namespace {

std::string statementFor(const RecordedChartQuery& query) {
  return fmt::format(
      "SELECT ZDAY, ZTRACKIDS FROM ZCHARTSNAPSHOT\n"
      "WHERE ZCHARTKEY = '{}' AND ZDAY < {}\n"
      "ORDER BY ZDAY DESC LIMIT 1",
      chartKey(query.platform, query.chart, query.storefront),
      decimalText(toReferenceSeconds(query.before)));
}

}  // namespace

std::optional<RecordedChart> readPreviousChart(const Environment& environment,
                                               const RecordedChartQuery& query,
                                               const LogSink& log) {
  try {
    const CLILocalStore store = CLILocalStore::open(environment, log);
    LocalStatement rows(store, statementFor(query));
    if (!rows.next()) return {};
    const auto day = rows.date(0);
    auto trackIds = unarchive<std::int64_t>(rows.bytes(1));
    if (!day || !trackIds) return {};
    return RecordedChart{*day, std::move(*trackIds)};
  } catch (const CLIError&) {
    return {};
  }
}

}  // namespace quillet
