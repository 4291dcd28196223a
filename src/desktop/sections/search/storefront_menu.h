// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QMenu>
#include <string>

namespace quillet {

/// "United States"; the code itself where no country is known by it.
[[nodiscard]] QString countryName(const std::string& code);

/// The storefronts to choose from: those with price data, then all by the alphabet. Typing leads to
/// a name.
class StorefrontMenu : public QMenu {
  Q_OBJECT

 public:
  explicit StorefrontMenu(QWidget* parent = nullptr);

  void setChosen(const std::string& code);

 Q_SIGNALS:
  void chosen(const std::string& code);

 private:
  void fill();

  std::string chosen_;
};

}  // namespace quillet
