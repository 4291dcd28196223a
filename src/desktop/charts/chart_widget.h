// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QPixmap>
#include <QStringList>
#include <QWidget>
#include <optional>

#include "desktop/look/look.h"

namespace quillet {

/// A chart of points over time. What is told of the point under the pointer stands in a tooltip;
/// with the focus, the arrow keys go from point to point. What is told last is the widget's
/// description, too. Assistive technology has the points as a table.
class ChartWidget : public QWidget {
  Q_OBJECT

 public:
  /// `name` is what those hear who do not see it: "Price history of Paperfold".
  explicit ChartWidget(const QString& name, QWidget* parent = nullptr);

  /// How many points are shown, and what the table of them says; the oldest first.
  [[nodiscard]] virtual std::size_t pointCount() const = 0;
  [[nodiscard]] virtual QStringList columnNames() const = 0;
  [[nodiscard]] virtual QStringList cellsOf(std::size_t point) const = 0;
  /// The middle of a point's part of the drawing.
  [[nodiscard]] virtual QPointF middleOf(std::size_t point) = 0;

  [[nodiscard]] const std::optional<std::size_t>& chosen() const { return chosen_; }
  /// Marks a point and says what is told of it, in the description.
  void choose(std::optional<std::size_t> point);

 protected:
  /// The drawing without the mark of what is chosen.
  virtual void paintChart(QPainter& painter, Look& look) = 0;
  [[nodiscard]] virtual std::optional<std::size_t> pointAt(const QPointF& place) = 0;
  [[nodiscard]] virtual QString textOf(std::size_t point) const = 0;

  /// It draws something else from now on, which `summary` says in a sentence.
  void showAnew(const QString& summary);
  /// It is drawn again, of the same points.
  void drawAnew();
  void tell(std::size_t point);

  bool event(QEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void leaveEvent(QEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;

 private:
  struct Kept {
    QPixmap pixmap;
    Palette palette{Scheme::light, Contrast::normal};
    double textScale = 0;
  };

  const QPixmap& drawn();

  QString summary_;
  std::optional<std::size_t> chosen_;
  Kept kept_;
};

}  // namespace quillet
