// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QHash>
#include <compare>
#include <string>

namespace quillet {

/// One picture in one size.
struct ImageKey {
  std::string address;  ///< as the store gave it
  int pixels = 0;       ///< device pixels of the square that it is to fit into

  friend auto operator<=>(const ImageKey&, const ImageKey&) = default;
  friend size_t qHash(const ImageKey& key, size_t seed) {
    return qHashMulti(seed, qHashBits(key.address.data(), key.address.size(), seed), key.pixels);
  }
};

}  // namespace quillet
