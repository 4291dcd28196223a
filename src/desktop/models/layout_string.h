// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace quillet {

/// A block of an app's page, by ID, and whether it is to be seen.
struct BlockChoice {
  std::string id;
  bool isShown = true;

  friend bool operator==(const BlockChoice&, const BlockChoice&) = default;
};

/// Reads what the user chose: IDs joined by ",", each with a leading "-" where it is hidden. Those
/// that are missing come in behind the one that stands before them in `usual`, the order of those
/// who chose nothing; those that nobody knows (any more) stay where they are.
[[nodiscard]] std::vector<BlockChoice> readBlockChoices(std::string_view text,
                                                        std::span<const std::string_view> usual);

/// The same as a text; empty where it is as usual, so that it is where other blocks come, too.
[[nodiscard]] std::string blockChoicesText(const std::vector<BlockChoice>& choices,
                                           std::span<const std::string_view> usual);

}  // namespace quillet
