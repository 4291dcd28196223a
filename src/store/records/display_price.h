// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <string>
#include <string_view>

#include "store/records/itunes_app.h"
#include "system/locale_formats.h"

namespace quillet {

/// What a price of 0 reads as.
inline constexpr std::string_view kFreeText = "Free";

/// The price as a person reads it: Apple's own text where there is one, "Free" for 0 and for a
/// record without a price, else the amount in the app's currency and the user's locale.
[[nodiscard]] std::string displayPrice(const ITunesApp& app, const LocaleFormats& formats);

}  // namespace quillet
