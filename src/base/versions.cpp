// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "base/versions.h"

#include <algorithm>

namespace quillet {

namespace {

/// The leading digits of the next non-empty piece, without leading zeros, so that pieces of any
/// length compare without overflow: first by length, then as text. Empty stands for 0.
std::string_view takePiece(std::string_view& version) {
  version.remove_prefix(std::min(version.find_first_not_of('.'), version.size()));
  const std::string_view piece = version.substr(0, version.find('.'));
  version.remove_prefix(piece.size());
  const std::string_view digits =
      piece.substr(0, std::min(piece.find_first_not_of("0123456789"), piece.size()));
  return digits.substr(std::min(digits.find_first_not_of('0'), digits.size()));
}

}  // namespace

std::strong_ordering compareVersions(std::string_view left, std::string_view right) {
  while (!left.empty() || !right.empty()) {
    const std::string_view a = takePiece(left);
    const std::string_view b = takePiece(right);
    if (const auto order = a.size() <=> b.size(); order != 0) return order;
    if (const auto order = a <=> b; order != 0) return order;
  }
  return std::strong_ordering::equal;
}

}  // namespace quillet
