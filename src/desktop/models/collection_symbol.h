// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>
#include <array>
#include <string>
#include <string_view>

namespace quillet {

/// A symbol that a collection may have, and the icon that shows it.
struct CollectionSymbol {
  std::string_view name;  ///< stored; never changes
  const char* icon;
};

inline constexpr std::array<CollectionSymbol, 24> kCollectionSymbols{{
    {"folder", "folder2"},
    {"bookmark", "bookmark"},
    {"star", "star"},
    {"heart", "heart"},
    {"pencil", "pencil"},
    {"book", "book"},
    {"camera", "camera"},
    {"photo", "image"},
    {"musicnote", "music-note-beamed"},
    {"film", "film"},
    {"gamecontroller", "controller"},
    {"laptopcomputer", "laptop"},
    {"desktopcomputer", "display"},
    {"iphone", "phone"},
    {"ipad", "tablet"},
    {"gift", "gift"},
    {"cart", "cart"},
    {"house", "house"},
    {"briefcase", "briefcase"},
    {"graduationcap", "mortarboard"},
    {"hammer", "hammer"},
    {"paintpalette", "palette"},
    {"globe", "globe"},
    {"lightbulb", "lightbulb"},
}};

/// A name that is none of these is shown as the first of them.
[[nodiscard]] QString iconOfSymbol(const std::string& name);

}  // namespace quillet
