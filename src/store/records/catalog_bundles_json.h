// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <string_view>
#include <vector>

#include "store/records/app_bundle_info.h"

namespace quillet {

/// The bundles of the answer with their apps, in its order; what has no ID is left out. Throws
/// DecodingError when `body` is no catalog answer.
[[nodiscard]] std::vector<AppBundleInfo> decodeBundles(const std::string& body);

}  // namespace quillet
