// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <array>
#include <string_view>

namespace quillet::sandbox {

struct Genre {
  int id;
  std::string_view name;
};

/// The store's categories with Apple's numbers.
inline constexpr std::array<Genre, 25> kGenres{{
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

/// The category's name; empty for a number that the table does not hold.
constexpr std::string_view genreName(int id) {
  for (const Genre& genre : kGenres) {
    if (genre.id == id) return genre.name;
  }
  return {};
}

}  // namespace quillet::sandbox
