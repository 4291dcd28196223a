// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

namespace quillet::sandbox {

/// A well mixed number made of two: the same on every machine and in every run.
[[nodiscard]] std::uint64_t mixed(std::uint64_t a, std::uint64_t b);

/// A sequence of numbers settled by its key alone. The standard library's distributions differ
/// between implementations; these do not.
class Random {
 public:
  explicit Random(std::uint64_t key) : state_(key) {}

  std::uint64_t next();
  /// 0 to `bound` - 1; `bound` must not be 0.
  std::size_t below(std::size_t bound) { return next() % bound; }
  /// `lowest` to `highest`, both included.
  int between(int lowest, int highest);
  bool oneIn(std::size_t n) { return below(n) == 0; }
  /// 0 up to but not 1.
  double unit();
  /// Close to the standard normal distribution, within -6 and 6.
  double normal();

  template <typename Items>
  const auto& pick(const Items& items) {
    return items[below(std::size(items))];
  }

 private:
  std::uint64_t state_;
};

}  // namespace quillet::sandbox
