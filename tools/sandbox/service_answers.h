// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <optional>
#include <string>
#include <vector>

#include "sandbox/records.h"
#include "sandbox/sample_store.h"

namespace quillet::sandbox {

// What the answers of /search and /lookup have in common.

/// The storefront that the request names ("us" where it names none); absent for an unknown one.
[[nodiscard]] std::optional<Storefront> storefrontOf(const Request& request);

/// The shelf that an "entity" item names; absent for an unknown or empty one.
[[nodiscard]] std::optional<Shelf> shelfOf(std::string_view entity);

/// The "limit" item, 1 to 200; 50 where it is missing or no such number.
[[nodiscard]] std::size_t limitOf(const Request& request);

/// The list of results, opened and closed in the service's way: an object with their number, line
/// feeds around it. Write the results between the two calls.
class ResultList {
 public:
  explicit ResultList(std::size_t count);

  [[nodiscard]] JsonWriter& json() { return json_; }
  [[nodiscard]] Answer take();

 private:
  JsonWriter json_;
};

/// Status 400 with the service's words for a query item that it does not take.
[[nodiscard]] Answer invalidValue(std::string_view key);

}  // namespace quillet::sandbox
