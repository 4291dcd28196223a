// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QPushButton>

namespace quillet {

/// Opens and closes the panel of filters, and says how many are set.
class FiltersButton : public QPushButton {
  Q_OBJECT

 public:
  explicit FiltersButton(QWidget* parent = nullptr);

  void setState(int active, bool areShown);
  /// Only its icon and the number.
  void setShort(bool isShort);

  [[nodiscard]] QSize sizeHint() const override { return sizeOf(isShort_); }
  [[nodiscard]] QSize sizeOf(bool isShort) const;

 protected:
  void nextCheckState() override;
  void paintEvent(QPaintEvent* event) override;

 private:
  int active_ = 0;
  bool isShort_ = false;
};

}  // namespace quillet
