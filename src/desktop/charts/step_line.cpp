// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/charts/step_line.h"

#include <QPainter>
#include <algorithm>
#include <cmath>
#include <optional>

#include "desktop/look/pixel_grid.h"

namespace quillet {

namespace {

constexpr double kNarrow = 4;
// Higher boxes are shared out among threads, which takes longer than filling them.
constexpr double kPiece = 32;

/// Where runs meet: from the highest to the lowest of them.
struct Column {
  double x = 0;
  double top = 0;
  double bottom = 0;
};

void extend(Column& column, double height) {
  column.top = std::min(column.top, height);
  column.bottom = std::max(column.bottom, height);
}

/// Narrow runs that follow one another as one, down from the lowest of them: above it there is
/// hardly anything but lines.
std::vector<StepRun> broadened(const std::vector<StepRun>& runs) {
  std::vector<StepRun> broad;
  bool isOpen = false;
  for (const StepRun& run : runs) {
    const double width = run.right - run.left;
    if (width <= 0) continue;
    const bool isNarrow = width < kNarrow;
    if (isOpen && isNarrow && run.isJoined) {
      broad.back().right = run.right;
      broad.back().height = std::max(broad.back().height, run.height);
    } else {
      broad.push_back(run);
    }
    isOpen = isNarrow && broad.back().right - broad.back().left < kNarrow;
  }
  return broad;
}

bool isWhole(double pixels) { return std::abs(pixels - std::round(pixels)) < 1e-6; }

}  // namespace

void putOnGrid(std::vector<StepRun>& runs, QPainter& painter, double width) {
  const PixelGrid grid(painter);
  for (StepRun& run : runs) {
    run.left = grid.strokeX(run.left, width);
    run.right = grid.strokeX(run.right, width);
    run.height = grid.strokeY(run.height, width);
  }
}

void paintSteps(QPainter& painter, const std::vector<StepRun>& runs, double width,
                const QColor& color) {
  const double half = width / 2;
  painter.setRenderHint(QPainter::Antialiasing, !isWhole(width * PixelGrid(painter).ratio()));
  std::optional<Column> column;
  const auto flush = [&] {
    if (column && column->bottom > column->top)
      painter.fillRect(
          QRectF(column->x - half, column->top - half, width, column->bottom - column->top + width),
          color);
    column.reset();
  };
  for (std::size_t i = 0; i < runs.size(); ++i) {
    const StepRun& run = runs[i];
    if (run.isJoined && (!column || column->x != run.left)) {
      flush();
      column = Column{run.left, runs[i - 1].height, runs[i - 1].height};
    }
    if (column) extend(*column, run.height);
    if (run.right <= run.left) continue;
    flush();
    const bool isLast = i + 1 == runs.size() || !runs[i + 1].isJoined;
    const double left = run.left - (run.isJoined ? half : 0);
    const double right = run.right + (isLast ? 0 : half);
    painter.fillRect(QRectF(left, run.height - half, right - left, width), color);
  }
  flush();
  painter.setRenderHint(QPainter::Antialiasing);
}

void paintBelow(QPainter& painter, const std::vector<StepRun>& runs, double bottom,
                const QColor& color) {
  painter.setRenderHint(QPainter::Antialiasing, false);
  const PixelGrid grid(painter);
  for (const StepRun& run : broadened(runs)) {
    const double left = grid.x(run.left);
    for (double top = run.height; top < bottom; top += kPiece) {
      const double from = grid.y(top);
      painter.fillRect(QRectF(left, from, grid.x(run.right) - left,
                              grid.y(std::min(top + kPiece, bottom)) - from),
                       color);
    }
  }
  painter.setRenderHint(QPainter::Antialiasing);
}

}  // namespace quillet
