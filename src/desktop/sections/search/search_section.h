// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <memory>

#include "desktop/lists/section.h"

namespace quillet {

/// Search: apps of the store by words, or all of a developer, with filters that the store lacks.
[[nodiscard]] std::unique_ptr<Section> makeSearch(const ViewWorld& world);

}  // namespace quillet
