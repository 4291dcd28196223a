// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "store/records/price_data_error.h"

#include <fmt/format.h>

namespace quillet {

namespace {

constexpr int kNotFound = 404;

}  // namespace

PriceDataError PriceDataError::httpStatus(int status, std::string_view address) {
  if (status == kNotFound) {
    return {Kind::nothingPublished, fmt::format("No published price data at {}.", address),
            address.starts_with("file:")};
  }
  return {Kind::failed, fmt::format("The price data server returned HTTP {}.", status)};
}

PriceDataError PriceDataError::unreadable(std::string_view country) {
  return {Kind::failed,
          fmt::format("The published price data for '{}' could not be read.", country)};
}

PriceDataError PriceDataError::newer() {
  return {Kind::failed, "The price data is newer than this build understands."};
}

PriceDataError PriceDataError::empty(std::string_view country) {
  return {Kind::nothingPublished, fmt::format("No price data published for '{}'.", country)};
}

}  // namespace quillet
