// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QStringList>
#include <QWidget>

namespace quillet {

/// The steps of something, numbered, with the one that one is at.
class StepList : public QWidget {
  Q_OBJECT

 public:
  explicit StepList(const QStringList& steps);

  void setCurrent(int step);

  [[nodiscard]] QSize sizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  [[nodiscard]] double lineHeight() const;
  void paintNumber(QPainter& painter, int step, double top) const;

  QStringList steps_;
  int current_ = 0;
};

}  // namespace quillet
