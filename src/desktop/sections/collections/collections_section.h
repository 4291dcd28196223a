// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <memory>

#include "desktop/lists/section.h"

namespace quillet {

/// The overview of all collections, and the apps of one.
[[nodiscard]] std::unique_ptr<Section> makeCollections(const ViewWorld& world);

}  // namespace quillet
