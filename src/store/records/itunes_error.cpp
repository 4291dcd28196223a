// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "store/records/itunes_error.h"

#include <fmt/format.h>

namespace quillet {

ITunesError::ITunesError(Kind kind, int status, const std::string& description, bool isRateLimit)
    : std::runtime_error(description), kind_(kind), status_(status), isRateLimit_(isRateLimit) {}

ITunesError ITunesError::httpStatus(int status, std::string_view body) {
  return {Kind::httpStatus, status,
          fmt::format("Apple's server returned an error (HTTP {}).", status),
          status == 429 || (status == 403 && body.empty())};
}

ITunesError ITunesError::invalidURL() { return {Kind::invalidURL, 0, "Invalid request URL."}; }

ITunesError ITunesError::emptyFeed() {
  return {Kind::emptyFeed, 0, "This chart is not available."};
}

}  // namespace quillet
