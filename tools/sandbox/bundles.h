// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "sandbox/sample_store.h"

namespace quillet::sandbox {

/// Mac apps of one maker, sold together for less.
struct SampleBundle {
  std::int64_t id = 0;
  std::string name;
  int usCents = 0;              ///< one of the price points
  std::vector<SampleApp> apps;  ///< two or more
};

/// A maker has a bundle where a storefront sells two paid Mac apps of theirs.
[[nodiscard]] std::optional<SampleBundle> bundleOf(const SampleStore& store, std::int64_t makerId,
                                                   Storefront storefront);

[[nodiscard]] std::optional<SampleBundle> bundleWithId(const SampleStore& store, std::int64_t id,
                                                       Storefront storefront);

}  // namespace quillet::sandbox
