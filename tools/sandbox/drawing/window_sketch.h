// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QColor>
#include <QPainter>
#include <QRectF>
#include <cstdint>

#include "sandbox/drawing/icon_design.h"

namespace quillet::sandbox {

/// The colours of a drawn window.
struct WindowColours {
  QColor base;    ///< behind everything
  QColor side;    ///< behind lists at the side
  QColor brand;   ///< of the app's icon
  QColor tint;    ///< pale, of the same hue
  QColor strong;  ///< headings
  QColor line;    ///< text
};

enum class WindowTone { light, tinted, dark };

[[nodiscard]] WindowColours coloursOf(const IconDesign& design, WindowTone tone);

/// Draws the pieces that windows are made of. Lengths are in hundredths of the window's height, or
/// of its width on a telephone.
class WindowSketch {
 public:
  WindowSketch(QPainter& painter, const IconDesign& design, WindowTone tone, std::uint64_t key);

  [[nodiscard]] const WindowColours& colours() const { return colours_; }

  void fill(const QRectF& area, const QColor& colour);
  /// A rectangle with round corners.
  void card(const QRectF& area, const QColor& colour, double radius = 2);
  /// Some words: a line of that height with round ends.
  void words(QPointF place, double length, double height, const QColor& colour);

  /// A heading and lines below it, as far as the area reaches.
  void text(const QRectF& area);
  /// Lines alone.
  void paragraph(const QRectF& area, int lines);
  /// A band of the app's colour on top, with its name and a few words; returns what is left below.
  QRectF band(const QRectF& area, double height);
  /// A list at the side, one of its rows chosen; returns what is left beside it.
  QRectF sidebar(const QRectF& area, double width);
  /// Hills under a sun.
  void picture(const QRectF& area);
  void cards(const QRectF& area, int columns, int rows);
  void rows(const QRectF& area, int count);
  void chart(const QRectF& area);
  void bars(const QRectF& area, int count);
  /// The icon, as large as that, on its colours.
  void hero(const QRectF& area, double size);

 private:
  double between(double least, double most);

  QPainter& painter_;
  const IconDesign& design_;
  WindowColours colours_;
  std::uint64_t state_;
};

}  // namespace quillet::sandbox
