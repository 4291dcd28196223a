// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>
#include <array>
#include <string>
#include <string_view>

namespace quillet {

/// A symbol that a collection may have, the icon that shows it, and what it is called.
struct CollectionSymbol {
  std::string_view name;  ///< stored; never changes
  const char* icon;
  const char* title;  ///< marked for translation in the context "Symbols"
};

inline constexpr std::array<CollectionSymbol, 24> kCollectionSymbols{{
    {"folder", "folder2", QT_TRANSLATE_NOOP("Symbols", "Folder")},
    {"bookmark", "bookmark", QT_TRANSLATE_NOOP("Symbols", "Bookmark")},
    {"star", "star", QT_TRANSLATE_NOOP("Symbols", "Star")},
    {"heart", "heart", QT_TRANSLATE_NOOP("Symbols", "Heart")},
    {"pencil", "pencil", QT_TRANSLATE_NOOP("Symbols", "Pencil")},
    {"book", "book", QT_TRANSLATE_NOOP("Symbols", "Book")},
    {"camera", "camera", QT_TRANSLATE_NOOP("Symbols", "Camera")},
    {"photo", "image", QT_TRANSLATE_NOOP("Symbols", "Picture")},
    {"musicnote", "music-note-beamed", QT_TRANSLATE_NOOP("Symbols", "Note")},
    {"film", "film", QT_TRANSLATE_NOOP("Symbols", "Film")},
    {"gamecontroller", "controller", QT_TRANSLATE_NOOP("Symbols", "Game controller")},
    {"laptopcomputer", "laptop", QT_TRANSLATE_NOOP("Symbols", "Laptop")},
    {"desktopcomputer", "display", QT_TRANSLATE_NOOP("Symbols", "Display")},
    {"iphone", "phone", QT_TRANSLATE_NOOP("Symbols", "Phone")},
    {"ipad", "tablet", QT_TRANSLATE_NOOP("Symbols", "Tablet")},
    {"gift", "gift", QT_TRANSLATE_NOOP("Symbols", "Gift")},
    {"cart", "cart", QT_TRANSLATE_NOOP("Symbols", "Cart")},
    {"house", "house", QT_TRANSLATE_NOOP("Symbols", "House")},
    {"briefcase", "briefcase", QT_TRANSLATE_NOOP("Symbols", "Briefcase")},
    {"graduationcap", "mortarboard", QT_TRANSLATE_NOOP("Symbols", "Mortarboard")},
    {"hammer", "hammer", QT_TRANSLATE_NOOP("Symbols", "Hammer")},
    {"paintpalette", "palette", QT_TRANSLATE_NOOP("Symbols", "Palette")},
    {"globe", "globe", QT_TRANSLATE_NOOP("Symbols", "Globe")},
    {"lightbulb", "lightbulb", QT_TRANSLATE_NOOP("Symbols", "Light bulb")},
}};

/// A name that is none of these is shown as the first of them.
[[nodiscard]] QString iconOfSymbol(const std::string& name);

}  // namespace quillet
