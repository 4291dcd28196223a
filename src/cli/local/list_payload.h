// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "base/json_writer.h"

namespace quillet {

/// What a listing shows, and of how many.
template <typename Item>
struct CLIListPayload {
  std::size_t total = 0;  ///< before any filter and limit
  std::vector<Item> items;
};

template <typename Item>
std::string renderListJson(const CLIListPayload<Item>& list,
                           void (*writeItem)(JsonWriter& writer, const Item& item)) {
  return jsonObject([&](JsonWriter& writer) {
    writer.member("count", list.items.size());
    writer.list("items", list.items, writeItem);
    writer.member("total", list.total);
  });
}

}  // namespace quillet
