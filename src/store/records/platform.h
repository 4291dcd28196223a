// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include "base/enum_table.h"

namespace quillet {

/// The three stores.
enum class Platform { mac, iphone, ipad };

// Stored; never change.
inline constexpr EnumTable<Platform, 3> kPlatformWords{{
    {Platform::mac, "mac"},
    {Platform::iphone, "iphone"},
    {Platform::ipad, "ipad"},
}};
static_assert(isComplete(kPlatformWords, Platform::ipad));

/// What Apple's search service calls each store in its "entity" item.
inline constexpr EnumTable<Platform, 3> kPlatformEntities{{
    {Platform::mac, "macSoftware"},
    {Platform::iphone, "software"},
    {Platform::ipad, "iPadSoftware"},
}};
static_assert(isComplete(kPlatformEntities, Platform::ipad));

}  // namespace quillet
