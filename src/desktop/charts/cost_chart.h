// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QWidget>

#include "desktop/charts/cost_plot.h"

namespace quillet {

/// What things cost over years. What all have cost after the year under the pointer stands in a
/// tooltip; with the focus, the arrow keys go from year to year. What is told last is the widget's
/// description, too.
class CostChart : public QWidget {
  Q_OBJECT

 public:
  /// `name` is what those hear who do not see it.
  explicit CostChart(const QString& name, QWidget* parent = nullptr);

  /// `summary` is the description until a year is chosen. Without lines it is shown in their place.
  void show(CostPicture picture, const QString& summary);
  using QWidget::show;

  [[nodiscard]] QSize sizeHint() const override;
  [[nodiscard]] QSize minimumSizeHint() const override { return {240, sizeHint().height()}; }

 protected:
  bool event(QEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void leaveEvent(QEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;

 private:
  [[nodiscard]] QRectF place() const;
  [[nodiscard]] bool hasLines() const { return !plot_.picture().lines.empty(); }
  [[nodiscard]] QString textOf(int year) const;
  void choose(std::optional<int> year);
  void tell(int year);

  CostPlot plot_;
  QString summary_;
  std::optional<int> chosen_;
};

}  // namespace quillet
