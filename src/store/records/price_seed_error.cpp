// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "store/records/price_seed_error.h"

#include <fmt/format.h>

namespace quillet {

namespace {

constexpr int kNotFound = 404;

}  // namespace

PriceSeedError PriceSeedError::httpStatus(int status, std::string_view address) {
  if (status == kNotFound) {
    return {Kind::nothingPublished, fmt::format("No published price data at {}.", address),
            address.starts_with("file:")};
  }
  return {Kind::failed, fmt::format("The price data server returned HTTP {}.", status)};
}

PriceSeedError PriceSeedError::unreadable(std::string_view country) {
  return {Kind::failed,
          fmt::format("The published price data for '{}' could not be read.", country)};
}

PriceSeedError PriceSeedError::newer() {
  return {Kind::failed, "The price data is newer than this build understands."};
}

PriceSeedError PriceSeedError::empty(std::string_view country) {
  return {Kind::nothingPublished, fmt::format("No price data published for '{}'.", country)};
}

}  // namespace quillet
