// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "store/records/app_genre.h"

#include <algorithm>

#include "base/nearest_name.h"
#include "base/numbers.h"
#include "base/text.h"

namespace quillet {

const AppGenre* findGenre(std::string_view text) {
  const auto id = parseWhole(text);
  const auto* const found = std::ranges::find_if(kAppGenres, [&](const AppGenre& genre) {
    return id ? genre.id == *id : lowerAscii(genre.name) == lowerAscii(text);
  });
  return found == kAppGenres.end() ? nullptr : found;
}

const AppGenre* nearestGenre(std::string_view text) {
  std::array<std::string_view, kAppGenres.size()> names;
  std::ranges::transform(kAppGenres, names.begin(), &AppGenre::name);
  const auto name = nearestName(text, names);
  return name ? findGenre(*name) : nullptr;
}

}  // namespace quillet
