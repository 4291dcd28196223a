// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "sandbox/random.h"

namespace quillet::sandbox {

std::uint64_t mixed(std::uint64_t a, std::uint64_t b) {
  return Random(a * 0x9E3779B97F4A7C15U ^ b).next();
}

// The splitmix64 generator: one addition and a finalizer, good for any key.
std::uint64_t Random::next() {
  state_ += 0x9E3779B97F4A7C15U;
  std::uint64_t z = state_;
  z = (z ^ (z >> 30)) * 0xBF58476D1CE4E5B9U;
  z = (z ^ (z >> 27)) * 0x94D049BB133111EBU;
  return z ^ (z >> 31);
}

int Random::between(int lowest, int highest) {
  return lowest + static_cast<int>(below(static_cast<std::size_t>(highest - lowest) + 1));
}

double Random::unit() { return static_cast<double>(next() >> 11) * 0x1.0p-53; }

double Random::normal() {
  double sum = -6;
  for (int i = 0; i < 12; ++i) sum += unit();
  return sum;
}

}  // namespace quillet::sandbox
