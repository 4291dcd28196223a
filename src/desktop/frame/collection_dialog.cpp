// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/frame/collection_dialog.h"

#include "desktop/frame/symbol_grid.h"

namespace quillet {

CollectionDialog::CollectionDialog(NameQuestion question, std::string symbol, QWidget* parent)
    : NameDialog(std::move(question), parent), symbols_(new SymbolGrid(std::move(symbol))) {
  ask(symbols_);
}

std::string CollectionDialog::symbol() const { return symbols_->symbol(); }

}  // namespace quillet
