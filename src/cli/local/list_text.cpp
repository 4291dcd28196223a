// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "cli/local/list_text.h"

#include <fmt/format.h>

#include "base/columns.h"
#include "base/text.h"
#include "cli/text_table.h"

namespace quillet {

std::string listHeader(std::size_t shown, std::size_t total, std::string_view what) {
  if (shown == total) return fmt::format("{} {}", shown, what);
  return fmt::format("{} of {} {}", shown, total, what);
}

std::string nameColumn(std::string_view name, std::size_t width, const TextStyle& style) {
  return column(shortened(printable(name), width - 1, style), width);
}

std::string storeText(const std::optional<std::string>& country,
                      const std::optional<std::string>& platform) {
  const std::string place = shown(country);
  const std::string kind = shown(platform);
  return place + (place.empty() || kind.empty() ? "" : ", ") + kind;
}

}  // namespace quillet
