// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QBasicTimer>
#include <QWidget>

#include "desktop/models/list_state.h"
#include "net/clock.h"

class QPushButton;

namespace quillet {

class Entrance;

/// What the button that does it says; empty for none.
[[nodiscard]] QString textOf(StripAction action);
/// After how many milliseconds what is told of a state is another text; 0 for never.
[[nodiscard]] int paceOf(const ListState& state);

/// The line above a list that tells how it stands. Hidden while there is nothing to tell.
class ListStrip : public QWidget {
  Q_OBJECT

 public:
  /// The clock outlives it.
  explicit ListStrip(Clock& clock);

  void setState(const ListState& state);

  [[nodiscard]] QSize sizeHint() const override;

 Q_SIGNALS:
  /// The button at its end.
  void acted(quillet::StripAction action);

 protected:
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void showEvent(QShowEvent* event) override;
  void hideEvent(QHideEvent* event) override;
  void timerEvent(QTimerEvent* event) override;

 private:
  [[nodiscard]] int above() const;
  void enter();
  void placeButtons();
  void tellDetails();
  void keepPace();

  Clock& clock_;
  ListState state_ = Ready{};
  StripAction action_ = StripAction::none;
  QPushButton* button_;
  QPushButton* details_;
  Instant since_{};  ///< when the state came
  Entrance* entrance_;
  QBasicTimer pace_;
  int end_ = 0;  ///< where the buttons begin
};

}  // namespace quillet
