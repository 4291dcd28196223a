// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QWidget>

namespace quillet {

class NothingFound : public QWidget {
  Q_OBJECT

 public:
  void show(const QString& /*line*/, const QString& /*relief*/, bool /*canClear*/) {}

 Q_SIGNALS:
  void clearAsked();
  void reliefAsked();
};

}  // namespace quillet
