// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QTimer>

#include "desktop/look/search_field.h"

namespace quillet {

/// Where the user types what to find in the list that is shown.
class FindField : public SearchField {
  Q_OBJECT

 public:
  /// `keys` lead here.
  explicit FindField(const QString& keys, QWidget* parent = nullptr);

  /// What it says while it is empty, which is also its name.
  void setPrompt(const QString& prompt);
  /// Nobody is told; what the user is typing stays.
  void setShownText(const QString& text);

  [[nodiscard]] QSize sizeHint() const override;

 Q_SIGNALS:
  /// Once the user has stopped typing for a moment, or at once with Enter and when it is cleared.
  void found(const QString& text);
  /// The user wants to go on to the rows.
  void left();

 protected:
  bool event(QEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  void take(const QString& text);
  void tell();

  QTimer rest_;
  bool isTold_ = true;  ///< whether the user changes the text
};

}  // namespace quillet
