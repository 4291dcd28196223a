// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "base/nearest_name.h"

#include <algorithm>
#include <numeric>
#include <string>
#include <vector>

#include "base/text.h"

namespace quillet {

namespace {

constexpr std::size_t kFewestLetters = 3;
constexpr std::size_t kLettersPerSlip = 3;

/// How many letters must be put in, left out or replaced to make one text of the other.
std::size_t slipsBetween(std::string_view left, std::string_view right) {
  std::vector<std::size_t> row(right.size() + 1);
  std::iota(row.begin(), row.end(), std::size_t{0});
  for (std::size_t i = 0; i < left.size(); ++i) {
    std::size_t diagonal = std::exchange(row[0], i + 1);
    for (std::size_t j = 0; j < right.size(); ++j) {
      const std::size_t replaced = diagonal + (left[i] == right[j] ? 0 : 1);
      diagonal = row[j + 1];
      row[j + 1] = std::min({replaced, row[j] + 1, diagonal + 1});
    }
  }
  return row.back();
}

}  // namespace

std::optional<std::string_view> nearestName(std::string_view text,
                                            std::span<const std::string_view> names) {
  const std::string wanted = lowerAscii(trimmed(text));
  if (wanted.size() < kFewestLetters) return {};
  std::optional<std::string_view> nearest;
  std::size_t fewest = wanted.size() / kLettersPerSlip + 1;
  for (const std::string_view name : names) {
    const std::string known = lowerAscii(name);
    if (known.starts_with(wanted)) return name;
    if (const std::size_t slips = slipsBetween(wanted, known); slips < fewest) {
      nearest = name;
      fewest = slips;
    }
  }
  return nearest;
}

}  // namespace quillet
