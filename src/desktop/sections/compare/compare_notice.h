// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QWidget>

class QPushButton;

namespace quillet {

class TextLabel;

/// One line above the table about the comparison itself, with what can be done about it.
class CompareNotice : public QWidget {
  Q_OBJECT

 public:
  CompareNotice();

  void tell(const QString& text);
  void tellMissing(const QString& text);
  void tellOneMore(const QString& text);

 Q_SIGNALS:
  /// The user wants to add an app.
  void addAsked();
  /// The user wants the apps that are missing to be compared no longer.
  void removeAsked();

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  void show(const QString& text, const QWidget* button);

  TextLabel* text_;
  QPushButton* add_;
  QPushButton* remove_;
};

}  // namespace quillet
