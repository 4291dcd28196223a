// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <array>
#include <string_view>

namespace quillet {

/// A store category: Apple's genre id and name.
struct AppGenre {
  int id;
  std::string_view name;
};

/// The id that stands for all categories.
inline constexpr int kAllGenresId = 36;

/// The categories of the store, in the order of their names; ids as Apple's genre list has them.
inline constexpr std::array<AppGenre, 25> kAppGenres{{
    {6018, "Books"},
    {6000, "Business"},
    {6026, "Developer Tools"},
    {6017, "Education"},
    {6016, "Entertainment"},
    {6015, "Finance"},
    {6023, "Food & Drink"},
    {6014, "Games"},
    {6027, "Graphics & Design"},
    {6013, "Health & Fitness"},
    {6012, "Lifestyle"},
    {6021, "Magazines & Newspapers"},
    {6020, "Medical"},
    {6011, "Music"},
    {6010, "Navigation"},
    {6009, "News"},
    {6008, "Photo & Video"},
    {6007, "Productivity"},
    {6006, "Reference"},
    {6024, "Shopping"},
    {6005, "Social Networking"},
    {6004, "Sports"},
    {6003, "Travel"},
    {6002, "Utilities"},
    {6001, "Weather"},
}};

/// The category of that name, in either case of letters, or of that id; null where there is none.
[[nodiscard]] const AppGenre* findGenre(std::string_view text);

/// The category that a mistyped name most likely means; null where none is close.
[[nodiscard]] const AppGenre* nearestGenre(std::string_view text);

}  // namespace quillet
