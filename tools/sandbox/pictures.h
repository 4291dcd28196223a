// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace quillet::sandbox {

/// The kinds of pictures that an app has; each has addresses of its own form.
enum class Picture { icon, macScreenshot, iphoneScreenshot, ipadScreenshot };

/// The address of an app's picture at a size, in the form that the store's image servers use; the
/// last part is `lastPart`, as "100x100bb.jpg".
[[nodiscard]] std::string pictureUrl(std::int64_t appId, Picture picture, int number,
                                     std::string_view lastPart);

/// So many screenshot addresses, at the size in which the search service names them.
[[nodiscard]] std::vector<std::string> screenshotUrls(std::int64_t appId, Picture picture,
                                                      int count);

}  // namespace quillet::sandbox
