// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <string_view>

#include "net/http_client.h"

namespace quillet {

/// The request for a page of the store's public web host; `address` is its scheme, host and port.
/// Throws ITunesError where these make no address.
[[nodiscard]] HttpRequest storePageRequest(std::string_view address, std::string_view path);

}  // namespace quillet
