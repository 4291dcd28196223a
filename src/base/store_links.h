// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace quillet {

/// The address of an app's page in a storefront of the App Store.
[[nodiscard]] std::string appPageLink(std::int64_t trackId, std::string_view country);

/// The track ID in a link to an app's page in the App Store,
/// "https://apps.apple.com/…/id148?mt=12", as digits; absent where the text is no such link.
[[nodiscard]] std::optional<std::string> trackIdInLink(std::string_view text);

/// The storefront that such a link names, two letters in lower case; absent where it names none.
[[nodiscard]] std::optional<std::string> storefrontInLink(std::string_view text);

/// Whether a text may be a bundle ID, "com.example.app": letters, digits and hyphens, parted by
/// dots.
[[nodiscard]] bool isBundleId(std::string_view text);

/// The track ID that a text is: a number above 0, in digits, with or without white space around
/// them.
[[nodiscard]] std::optional<std::int64_t> trackIdIn(std::string_view text);

}  // namespace quillet
