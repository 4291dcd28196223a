// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <string>

#include "desktop/models/place.h"
#include "system/settings.h"

namespace quillet {

/// What a new search asks the store, wherever it is begun: for the platform that the user chose for
/// them, in the user's storefront. Without a text nothing was searched for yet.
[[nodiscard]] StoreQuery newSearch(const Settings& settings, std::string text = {});

}  // namespace quillet
