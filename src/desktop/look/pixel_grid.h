// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QColor>
#include <QRectF>

class QPainter;
class QPainterPath;

namespace quillet {

/// The device's pixels under a painter, whatever its ratio and offset: what is put on them is sharp
/// at 1, 1.5 and 2 of them a pixel. All values are in the painter's own pixels.
class PixelGrid {
 public:
  explicit PixelGrid(QPainter& painter);

  /// Device pixels a pixel.
  [[nodiscard]] double ratio() const { return ratio_; }

  /// The nearest edge between device pixels.
  [[nodiscard]] double x(double value) const;
  [[nodiscard]] double y(double value) const;
  [[nodiscard]] QRectF rect(const QRectF& rect) const;

  /// The nearest middle of a stroke that is `width` thick and covers device pixels whole.
  [[nodiscard]] double strokeX(double value, double width) const;
  [[nodiscard]] double strokeY(double value, double width) const;
  /// A path of lines, each of its points there.
  [[nodiscard]] QPainterPath stroked(const QPainterPath& path, double width) const;

  /// The thickness nearest to `width` in whole device pixels, at least one.
  [[nodiscard]] double thickness(double width = 1) const;

  /// Hairlines, one pixel thick; `y` and `x` are their upper and left edge.
  void horizontal(double left, double right, double y, const QColor& color);
  void vertical(double x, double top, double bottom, const QColor& color);

 private:
  QPainter& painter_;
  double ratio_;
  double dx_;
  double dy_;
};

/// A border inside a box.
struct Border {
  QColor color = Qt::transparent;
  double width = 1;
};

/// Fills a box with round corners, its border on whole device pixels.
void paintBox(QPainter& painter, const QRectF& rect, double radius, const QColor& fill,
              const Border& border = {});

}  // namespace quillet
