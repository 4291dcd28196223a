// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QWidget>

#include "desktop/charts/release_axis.h"

namespace quillet {

/// Releases over time. What is told of the dot under the pointer stands in a tooltip; with the
/// focus, the arrow keys go from dot to dot. What is told last is the widget's description, too.
class ReleaseChart : public QWidget {
  Q_OBJECT

 public:
  explicit ReleaseChart(QWidget* parent = nullptr);

  /// `summary` is the description until a release is chosen.
  void show(ReleaseAxis axis, const QString& summary);
  using QWidget::show;

  [[nodiscard]] QSize sizeHint() const override;
  [[nodiscard]] QSize minimumSizeHint() const override { return {120, sizeHint().height()}; }

 protected:
  bool event(QEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void leaveEvent(QEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;

 private:
  void choose(std::optional<std::size_t> dot);
  void tell(std::size_t dot);

  ReleaseAxis axis_{{}, {}};
  QString summary_;
  std::optional<std::size_t> chosen_;
};

}  // namespace quillet
