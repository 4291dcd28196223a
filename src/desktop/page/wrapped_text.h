// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QRectF>
#include <QString>
#include <QTextLayout>
#include <limits>
#include <memory>
#include <optional>

#include "desktop/look/look.h"

namespace quillet {

/// How parts of a text are set, or drawn.
using TextFormats = QList<QTextLayout::FormatRange>;

/// How a text of several lines is set.
struct WrappedStyle {
  TypeStyle type;
  double lineHeight = 18;                       ///< at a text size of 100 %
  int lines = std::numeric_limits<int>::max();  ///< the last one ends in an ellipsis where it must
};

/// A plain text set into a width: it wraps anywhere where it must.
class WrappedText {
 public:
  WrappedText() = default;
  /// `parts` are set otherwise: heavier, for one.
  WrappedText(const QString& text, const WrappedStyle& style, int width, const TextPainter& painter,
              const TextFormats& parts = {});

  [[nodiscard]] int lines() const { return lines_; }
  [[nodiscard]] double height() const { return lines_ * lineHeight_; }
  /// Of the longest line.
  [[nodiscard]] double width() const { return longest_; }
  /// Whether there is more text than lines.
  [[nodiscard]] bool isCut() const { return isCut_; }
  /// The place in the text that is nearest to a point.
  [[nodiscard]] int positionAt(const QPointF& point) const;
  /// The character under a point; absent beside the lines.
  [[nodiscard]] std::optional<int> characterAt(const QPointF& point) const;
  /// How much of the text stands in lines that are drawn whole.
  [[nodiscard]] int shownLength() const;

  void paint(QPainter& painter, Look& look, const QPointF& corner, const QColor& ink,
             const TextFormats& formats = {}) const;

 private:
  void paintCutLine(QPainter& painter, Look& look, const QPointF& corner, const QColor& ink) const;

  std::unique_ptr<QTextLayout> layout_;
  TypeStyle type_;
  double lineHeight_ = 0;
  int setWidth_ = 0;
  int lines_ = 0;
  double longest_ = 0;
  bool isCut_ = false;
};

}  // namespace quillet
