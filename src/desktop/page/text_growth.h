// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <cmath>

#include "desktop/look/look.h"

namespace quillet {

/// What takes so much at a text size of 100 % takes in the one that is set.
[[nodiscard]] inline int grownBy(const Look& look, double pixels) {
  return static_cast<int>(std::ceil(pixels * look.growth()));
}

}  // namespace quillet
