// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "base/dates.h"
#include "store/records/itunes_app.h"

namespace quillet {

/// What one answer of the store says of an app's price.
struct ObservedApp {
  std::int64_t trackId = 0;
  std::string name;
  std::string seller;
  std::string currency;
  std::string kind;
  double price = 0;
  Instant released;  ///< when its current version was

  friend bool operator==(const ObservedApp&, const ObservedApp&) = default;
};

/// Absent where the store gave no price: nothing is guessed. Texts are made printable(): not every
/// database takes all that a store may send.
[[nodiscard]] std::optional<ObservedApp> observed(const ITunesApp& app);

}  // namespace quillet
