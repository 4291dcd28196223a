// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QComboBox>
#include <QPointer>
#include <string>

namespace quillet {

/// A box for a storefront. It opens a list with a field that finds them; closed, letters go to the
/// next one that begins with them.
class StorefrontBox : public QComboBox {
  Q_OBJECT

 public:
  StorefrontBox();
  /// One can be chosen to choose none: `system` is the storefront of who does.
  explicit StorefrontBox(const std::string& system);

  /// An empty code is none, the system's.
  void choose(const std::string& code);

  void showPopup() override;
  void hidePopup() override;

 Q_SIGNALS:
  /// By the user.
  void chosen(const std::string& code);

 private:
  [[nodiscard]] std::string codeAt(int index) const;
  /// What stands for none; empty where one has to be chosen.
  [[nodiscard]] QString noneText() const;

  QPointer<QWidget> popup_;
};

}  // namespace quillet
