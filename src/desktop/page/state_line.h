// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QBasicTimer>
#include <QLabel>

#include "desktop/models/list_state.h"
#include "net/clock.h"

class QPushButton;

namespace quillet {

/// How a block's own question to the store stands, where it does not stand well: the strip above
/// lists, but within a block, and of several lines where it has to be. A label, so that assistive
/// technology reads it, once as a state begins.
class StateLine : public QLabel {
  Q_OBJECT

 public:
  /// The clock outlives it.
  explicit StateLine(Clock& clock, QWidget* parent = nullptr);

  /// False where there is nothing to tell; it is hidden then.
  bool show(const ListState& state);

  [[nodiscard]] QSize sizeHint() const override;
  [[nodiscard]] QSize minimumSizeHint() const override { return {0, 0}; }
  [[nodiscard]] bool hasHeightForWidth() const override { return true; }
  [[nodiscard]] int heightForWidth(int width) const override { return arrange(width).height; }

 Q_SIGNALS:
  /// The button at its end: to stop or to try again.
  void acted(quillet::StripAction action);

 protected:
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void changeEvent(QEvent* event) override;
  void showEvent(QShowEvent* event) override;
  void hideEvent(QHideEvent* event) override;
  void timerEvent(QTimerEvent* event) override;

 private:
  struct Places {
    QRect text, button;
    int height = 0;
  };

  [[nodiscard]] Places arrange(int width) const;
  void placeButton();
  void keepPace();

  Clock& clock_;
  ListState state_ = Ready{};
  StripAction action_ = StripAction::none;
  QPushButton* button_;
  QBasicTimer pace_;
};

}  // namespace quillet
