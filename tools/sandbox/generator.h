// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <chrono>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "sandbox/app_sketch.h"

namespace quillet::sandbox {

/// What searching needs to know of a generated app.
struct AppHead {
  std::string name;
  std::string seller;
  std::string kind;  ///< words for what it does, as "Photo Editor"
  std::vector<int> genres;
  Machines machines;
  StorefrontSet storefronts;
  std::int64_t ratings = 0;
};

/// Makes apps up, each from the seed and its number alone. So nothing is kept, a million apps cost
/// what is asked of them, and the same seed gives the same apps whatever their count.
class Generator {
 public:
  /// Of numbers below this every app has an ID of ten digits.
  static constexpr std::uint32_t kMostApps = 5'000'000;

  explicit Generator(std::uint64_t seed) : seed_(seed) {}

  /// How many ratings the app has, without the cost of its head.
  [[nodiscard]] std::int64_t ratings(std::uint32_t number) const;
  [[nodiscard]] AppHead head(std::uint32_t number) const;
  [[nodiscard]] AppSketch sketch(std::uint32_t number) const;

  // Which app bears the name, by its form; whether there are so many apps is the caller's to check.
  [[nodiscard]] std::optional<std::uint32_t> numberOfId(std::int64_t id) const;
  [[nodiscard]] std::optional<std::uint32_t> numberOfBundleId(std::string_view bundleId) const;
  /// All apps of a maker, in ascending order; empty for an ID that no maker has.
  [[nodiscard]] std::vector<std::uint32_t> numbersOfMaker(std::int64_t makerId) const;

 private:
  [[nodiscard]] Maker makerOf(std::uint32_t number) const;

  std::uint64_t seed_;
};

}  // namespace quillet::sandbox
