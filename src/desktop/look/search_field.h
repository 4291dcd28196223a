// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QLineEdit>

class QToolButton;

namespace quillet {

/// A field for what is looked for: a glass before its text, and behind it the keys that lead here
/// while it is empty, or else a button that empties it.
class SearchField : public QLineEdit {
  Q_OBJECT

 public:
  /// `name` says what is searched, and stands in the empty field: "Find in Watchlist". `keys` as
  /// they are shown: "Ctrl+F"; empty for none. They give way where the field is too narrow for
  /// both.
  explicit SearchField(const QString& name, const QString& keys = {}, QWidget* parent = nullptr);

 protected:
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void changeEvent(QEvent* event) override;

 private:
  [[nodiscard]] double keysWidth() const;
  [[nodiscard]] bool showsKeys() const;
  void makeRoom();

  QString keys_;
  QToolButton* clear_ = nullptr;
};

}  // namespace quillet
