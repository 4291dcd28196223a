// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include "base/log_sink.h"
#include "cli/recorded_chart.h"
#include "system/environment.h"

namespace quillet {

/// The latest order of a chart that the library recorded before a day. Absent too where there is
/// no library, or none that can be read: a chart can be shown without it.
[[nodiscard]] std::optional<RecordedChart> readPreviousChart(const Environment& environment,
                                                             const RecordedChartQuery& query,
                                                             const LogSink& log = {});

}  // namespace quillet
