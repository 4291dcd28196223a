// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <memory>

#include "desktop/lists/section.h"

namespace quillet {

/// Compare: two to eight apps beside each other, with what years of using them cost.
[[nodiscard]] std::unique_ptr<Section> makeCompare(const ViewWorld& world);

}  // namespace quillet
