// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QWidget>

namespace quillet {

/// How many years a bar has room for, so that what happens after `months` lies inside it.
[[nodiscard]] int yearsAround(int months);

/// The years in which a subscription is paid, and from which month on buying once costs less.
/// Decoration: a sentence beside it says the same.
class BreakEvenBar : public QWidget {
  Q_OBJECT

 public:
  explicit BreakEvenBar(int months, QWidget* parent = nullptr);

  [[nodiscard]] QSize sizeHint() const override;
  [[nodiscard]] QSize minimumSizeHint() const override { return {120, sizeHint().height()}; }

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  int months_;
};

}  // namespace quillet
