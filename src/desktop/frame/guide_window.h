// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QDialog>

namespace quillet {

/// The guide to Quillet, which every installation has.
class GuideWindow : public QDialog {
  Q_OBJECT

 public:
  explicit GuideWindow(QWidget* parent);

 protected:
  void paintEvent(QPaintEvent* event) override;
};

}  // namespace quillet
