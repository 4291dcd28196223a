// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>
#include <optional>
#include <string>
#include <vector>

#include "desktop/models/compare_list.h"
#include "desktop/models/place.h"

namespace quillet {

/// What a place names by a key alone.
struct ListNames {
  std::string storefront;             ///< the user's
  std::string collection;             ///< the one that is shown; empty for none
  std::vector<ComparedKey> compared;  ///< and in which storefront
  std::string comparedIn;
};

/// What lists on the command line what the place shows, to paste into a POSIX shell; absent where
/// no command does. Of what only windows can leave out of a list, or order, it says nothing.
[[nodiscard]] std::optional<QString> listCommand(const Place& place, const ListNames& names);

}  // namespace quillet
