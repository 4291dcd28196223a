// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QWidget>

namespace quillet {

/// The drawing above the words of what has no rows.
class LargeIcon : public QWidget {
  Q_OBJECT

 public:
  explicit LargeIcon(QString name);

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  QString name_;
};

}  // namespace quillet
