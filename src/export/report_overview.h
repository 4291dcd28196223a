// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <vector>

#include "export/app_report.h"

namespace quillet {

/// The labelled facts of a report whose other fields are filled in, those that are known.
[[nodiscard]] std::vector<ReportFact> reportOverview(const AppReport& report,
                                                     const DescribedApp& described,
                                                     const LocaleFormats& formats);

}  // namespace quillet
