// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace quillet {

/// Names and values of a query, in the order in which they are sent.
using QueryItems = std::vector<std::pair<std::string, std::string>>;

/// Encodes everything but unreserved characters and ",", which servers take as it is.
[[nodiscard]] std::string percentEncoded(std::string_view text);

/// `base` (scheme, host, port) + `path` + "?" and the encoded items, if any.
[[nodiscard]] std::string buildUrl(std::string_view base, std::string_view path,
                                   const QueryItems& items);

/// Whether the text is an absolute http or https address without blanks, quotes or controls.
[[nodiscard]] bool isWebAddress(std::string_view text);

/// Whether the text is such an address over https, of a host and without a user's name.
[[nodiscard]] bool isSecureAddress(std::string_view text);

}  // namespace quillet
