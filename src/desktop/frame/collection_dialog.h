// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <string>

#include "desktop/frame/name_dialog.h"

namespace quillet {

class SymbolGrid;

/// Asks for a collection's name and symbol.
class CollectionDialog : public NameDialog {
  Q_OBJECT

 public:
  CollectionDialog(NameQuestion question, std::string symbol, QWidget* parent);

  [[nodiscard]] std::string symbol() const;

 private:
  SymbolGrid* symbols_;
};

}  // namespace quillet
