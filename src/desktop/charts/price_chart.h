// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QPixmap>
#include <QWidget>
#include <optional>

#include "desktop/charts/step_chart.h"

namespace quillet {

/// A price over time. What it cost under the pointer stands in a tooltip; with the focus, the arrow
/// keys go from price to price. What is told last is the widget's description, too. A target is
/// moved with the pointer by its handle, or with Alt and the arrow keys, which begin one where
/// there is none yet, and chosen once it is let go; Escape leaves it where it was.
class PriceChart : public QWidget {
  Q_OBJECT

 public:
  /// `name` is what those hear who do not see it: "Price history of Paperfold".
  explicit PriceChart(const QString& name, QWidget* parent = nullptr);

  /// `summary` is the description until a price is chosen: what the chart says, in a sentence.
  void show(PriceHistory history, const QString& summary);
  using QWidget::show;

  [[nodiscard]] QSize sizeHint() const override;
  [[nodiscard]] QSize minimumSizeHint() const override;

 Q_SIGNALS:
  /// The user moved the target there.
  void targetChosen(double price);

 protected:
  bool event(QEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void leaveEvent(QEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void keyReleaseEvent(QKeyEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;

 private:
  struct Kept {
    QPixmap pixmap;
    Palette palette{Scheme::light, Contrast::normal};
    double textScale = 0;
  };

  const QPixmap& drawn();
  void choose(std::optional<std::size_t> step);
  void tell(std::size_t step, const QPoint& place);
  [[nodiscard]] QString textOf(std::size_t step) const;
  void moveTarget(double price);
  void stepTarget(int steps);
  enum class TargetMove { chosen, left };
  void endMove(TargetMove how);
  bool moveByKey(QKeyEvent& event);

  std::optional<StepChart> chart_;
  QString summary_;
  std::optional<std::size_t> chosen_;   ///< a step, marked on the line
  std::optional<PriceHistory> before_;  ///< while the target is moved
  bool isDragging_ = false;
  Kept kept_;
};

}  // namespace quillet
