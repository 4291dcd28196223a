// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QColor>
#include <QPointF>
#include <vector>

class QPainter;

namespace quillet {

/// A time for which a value held.
struct StepRun {
  double left = 0;
  double right = 0;
  double height = 0;
  bool isJoined = false;  ///< to the run before
};

/// Puts all of them where a stroke of that width covers whole device pixels.
void putOnGrid(std::vector<StepRun>& runs, QPainter& painter, double width);

/// A line of runs and what joins them. Those that share a column of pixels cost no more than one.
void paintSteps(QPainter& painter, const std::vector<StepRun>& runs, double width,
                const QColor& color);

/// What lies between the runs and `bottom`.
void paintBelow(QPainter& painter, const std::vector<StepRun>& runs, double bottom,
                const QColor& color);

}  // namespace quillet
