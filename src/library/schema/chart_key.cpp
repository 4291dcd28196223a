// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "library/schema/chart_key.h"

#include <fmt/format.h>

namespace quillet {

std::string chartKey(Platform platform, ChartType chart, std::string_view storefront, int genre) {
  return fmt::format("chart-{}-{}-{}-{}", textOf(kPlatformWords, platform),
                     textOf(kChartTypeTexts, chart), storefront, genre);
}

}  // namespace quillet
