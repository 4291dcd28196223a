// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "store/records/full_size_picture.h"

#include <algorithm>

namespace quillet {

namespace {

constexpr std::string_view kFullSize = "/9999x9999bb.jpg";

/// Takes the characters of a kind from the front; false where there are none.
template <typename IsOfKind>
bool takeAll(std::string_view& text, IsOfKind isOfKind) {
  const auto end = std::find_if_not(text.begin(), text.end(), isOfKind);
  const auto count = static_cast<std::size_t>(end - text.begin());
  text.remove_prefix(count);
  return count > 0;
}

bool take(std::string_view& text, std::string_view word) {
  if (!text.starts_with(word)) return false;
  text.remove_prefix(word.size());
  return true;
}

bool isDigit(char c) { return c >= '0' && c <= '9'; }
bool isLetter(char c) { return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z'); }

/// "392x696bb.png"
bool namesSize(std::string_view part) {
  return takeAll(part, isDigit) && take(part, "x") && takeAll(part, isDigit) && take(part, "bb.") &&
         takeAll(part, isLetter) && part.empty();
}

}  // namespace

std::string fullSizeAddress(std::string_view address) {
  const std::size_t slash = address.rfind('/');
  if (slash == std::string_view::npos || !namesSize(address.substr(slash + 1))) {
    return std::string(address);
  }
  return std::string(address.substr(0, slash)).append(kFullSize);
}

}  // namespace quillet
