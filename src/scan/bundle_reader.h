// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <cstdint>
#include <functional>
#include <optional>

#include "scan/bundle_listing.h"
#include "scan/installed_bundle.h"

namespace quillet {

/// What the bundle says of itself, but for its size. Does not throw: what cannot be read is absent,
/// or the bundle's fault.
[[nodiscard]] InstalledBundle readBundle(const BundlePlace& place);

/// The bytes of all files inside. Absent where a folder inside cannot be read, where they lie
/// deeper than any app's, and where `stopped`, which may be empty, asked to end.
[[nodiscard]] std::optional<std::int64_t> sizeOfBundle(const BundlePlace& place,
                                                       const std::function<bool()>& stopped);

}  // namespace quillet
