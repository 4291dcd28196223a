// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "sandbox/storefronts.h"

namespace quillet::sandbox {

/// The address of an app's, maker's or bundle's page on the store's web host, as answers name it;
/// `what` is the kind of page, as "app". The host in it does not exist: whoever follows a link
/// must not land at a product of the real store.
[[nodiscard]] std::string webUrl(std::string_view what, std::string_view name, std::int64_t id,
                                 Storefront storefront);

/// Likewise of a chart: "mac", "iphone" or "ipad", and a category.
[[nodiscard]] std::string chartUrl(std::string_view shelf, int genre, Storefront storefront);

}  // namespace quillet::sandbox
