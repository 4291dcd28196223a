// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QWidget>

class QPushButton;
class QSlider;
class QToolButton;

namespace quillet {

class TextLabel;

/// The years of use, and what can be done with a comparison, in the toolbar.
class CompareTools : public QWidget {
  Q_OBJECT

 public:
  CompareTools();

  /// How many apps are compared, of how many, and whether there is a table to take along.
  void setState(std::size_t apps, std::size_t most, bool hasTable);
  /// Nobody is told.
  void setYears(int years);

  [[nodiscard]] QSize minimumSizeHint() const override;

 Q_SIGNALS:
  void yearsChosen(int years);
  /// An action, by its ID.
  void actionAsked(const QString& id);

 protected:
  void resizeEvent(QResizeEvent* event) override;
  void changeEvent(QEvent* event) override;

 private:
  QToolButton* button(const char* icon, const QString& name);
  void makeExport();
  void arrange();
  /// Of all parts, with a slider of that width; `add`: that of the button.
  [[nodiscard]] int widthOf(int slider, int add) const;

  TextLabel* title_;
  TextLabel* label_;  ///< of the slider, where there is room
  QSlider* years_;
  TextLabel* figure_;
  QPushButton* add_;
  QToolButton* copy_;
  QToolButton* export_;
  QString count_;
};

}  // namespace quillet
