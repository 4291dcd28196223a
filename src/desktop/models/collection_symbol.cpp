// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/models/collection_symbol.h"

#include <algorithm>

namespace quillet {

QString iconOfSymbol(const std::string& name) {
  const auto found = std::ranges::find(kCollectionSymbols, name, &CollectionSymbol::name);
  const auto& symbol = found == kCollectionSymbols.end() ? kCollectionSymbols.front() : *found;
  return QString::fromLatin1(symbol.icon);
}

}  // namespace quillet
