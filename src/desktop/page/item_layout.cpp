// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/page/item_layout.h"

#include <algorithm>

namespace quillet {

ItemLayout::ItemLayout(QWidget* parent) : QLayout(parent) { setContentsMargins(0, 0, 0, 0); }

ItemLayout::~ItemLayout() {
  std::ranges::for_each(items_, [](auto* item) { delete item; });
}

QLayoutItem* ItemLayout::itemAt(int index) const {
  return index >= 0 && index < count() ? items_[static_cast<std::size_t>(index)] : nullptr;
}

QLayoutItem* ItemLayout::takeAt(int index) {
  QLayoutItem* item = itemAt(index);
  if (item != nullptr) items_.erase(items_.begin() + index);
  return item;
}

}  // namespace quillet
