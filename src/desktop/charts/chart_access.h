// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

namespace quillet {

class ChartWidget;

/// From now on assistive technology has the points of all charts as tables.
void letChartsBeRead();

/// Whoever reads the chart's table is told that it is another one.
void tellOfNewPoints(ChartWidget& chart);

}  // namespace quillet
