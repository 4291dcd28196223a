// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <memory>

#include "desktop/lists/section.h"

namespace quillet {

/// Charts: the top of the store, of a platform and a category, and how it moved.
[[nodiscard]] std::unique_ptr<Section> makeCharts(const ViewWorld& world);

}  // namespace quillet
