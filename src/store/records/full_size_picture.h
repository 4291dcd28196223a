// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <string>
#include <string_view>

namespace quillet {

/// The address of the same picture in its largest size, as JPEG. An address that does not end in a
/// size, as "/392x696bb.png", stays as it is.
[[nodiscard]] std::string fullSizeAddress(std::string_view address);

}  // namespace quillet
