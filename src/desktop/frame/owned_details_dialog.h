// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QDialog>
#include <string>

#include "library/owned_apps.h"

class QLineEdit;
class QPushButton;

namespace quillet {

class TextLabel;

/// Asks for what the user knows better of an app in My Apps than any scan: what they paid for it,
/// and where it is in the store.
class OwnedDetailsDialog : public QDialog {
  Q_OBJECT

 public:
  /// `currency`: what the app's storefront asks for, ISO 4217, where the price has none; empty
  /// where nobody knows.
  OwnedDetailsDialog(const OwnedApp& app, const std::string& currency, QWidget* parent);

  /// As they stand in the fields, when it is accepted.
  [[nodiscard]] OwnedDetails details() const;

 private:
  void judge();

  OwnedDetails before_;
  std::string currency_;  ///< of the price that is asked for
  QLineEdit* price_;
  QLineEdit* link_;
  TextLabel* remark_;
  QPushButton* save_;
};

}  // namespace quillet
