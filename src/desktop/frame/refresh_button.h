// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QTimer>
#include <QToolButton>

namespace quillet {

/// The button that refreshes; a ring turns in its place while something is under way.
class RefreshButton : public QToolButton {
  Q_OBJECT

 public:
  explicit RefreshButton(QWidget* parent = nullptr);

  void setBusy(bool isBusy);

 protected:
  void paintEvent(QPaintEvent* event) override;
  void showEvent(QShowEvent* event) override;
  void hideEvent(QHideEvent* event) override;

 private:
  void turn();

  bool isBusy_ = false;
  int turned_ = 0;  ///< degrees
  QTimer turn_;     ///< while it is busy and seen
};

}  // namespace quillet
