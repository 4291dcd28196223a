// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <functional>

namespace quillet {

/// Numbers from 0 to below 1, evenly, others in each process.
[[nodiscard]] std::function<double()> evenRandom();

}  // namespace quillet
