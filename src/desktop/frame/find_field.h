// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QLineEdit>
#include <QTimer>

class QToolButton;

namespace quillet {

/// Where the user types what to find in the list that is shown.
class FindField : public QLineEdit {
  Q_OBJECT

 public:
  explicit FindField(QWidget* parent = nullptr);

  /// What it says while it is empty, which is also its name.
  void setPrompt(const QString& prompt);
  /// The keys that lead here, shown while it is empty.
  void setKeys(const QString& keys);
  /// Nobody is told.
  void setShownText(const QString& text);

  [[nodiscard]] QSize sizeHint() const override;

 Q_SIGNALS:
  /// Once the user has stopped typing for a moment, or at once with Enter.
  void found(const QString& text);
  /// The user wants to go on to the rows.
  void left();

 protected:
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  bool event(QEvent* event) override;

 private:
  void tell();
  void showClear();

  QString prompt_;
  QString keys_;
  QTimer rest_;
  QToolButton* clear_;
};

}  // namespace quillet
