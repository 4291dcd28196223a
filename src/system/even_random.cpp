// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "system/even_random.h"

#include <random>

namespace quillet {

std::function<double()> evenRandom() {
  return [engine = std::mt19937(std::random_device()())]() mutable {
    return std::uniform_real_distribution<double>()(engine);
  };
}

}  // namespace quillet
