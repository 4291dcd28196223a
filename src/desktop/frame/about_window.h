// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QDialog>

namespace quillet {

/// What this is, which version, and under which licence.
class AboutWindow : public QDialog {
  Q_OBJECT

 public:
  explicit AboutWindow(QWidget* parent);
};

}  // namespace quillet
