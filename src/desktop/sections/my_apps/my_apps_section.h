// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <memory>

#include "desktop/lists/section.h"

namespace quillet {

[[nodiscard]] std::unique_ptr<Section> makeMyApps(const ViewWorld& world);

}  // namespace quillet
