// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <memory>

#include "desktop/lists/section.h"

namespace quillet {

/// Deals: which prices fell, of apps that nobody watches too, by the published price data.
[[nodiscard]] std::unique_ptr<Section> makeDeals(const ViewWorld& world);

}  // namespace quillet
