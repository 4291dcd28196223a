// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QElapsedTimer>
#include <QMenu>
#include <string>

namespace quillet {

/// The storefronts to choose from: those with price data, then all by the alphabet. Typing leads to
/// a name.
class StorefrontMenu : public QMenu {
  Q_OBJECT

 public:
  explicit StorefrontMenu(QWidget* parent = nullptr);

  void setChosen(const std::string& code);

 Q_SIGNALS:
  void chosen(const std::string& code);

 protected:
  void keyPressEvent(QKeyEvent* event) override;

 private:
  void fill();
  void goToTyped();

  std::string chosen_;
  QString typed_;         ///< the beginning of a name
  QElapsedTimer letter_;  ///< since its last letter
};

}  // namespace quillet
