// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <cstddef>
#include <string_view>

#include "base/cpu_architectures.h"

namespace quillet {

/// What of an executable has to be read: the names of all architectures stand there.
inline constexpr std::size_t kMachOHead = 4096;

/// The architectures that an executable is compiled for, by its first bytes: those of one, or of a
/// file that joins several, in either byte order. Throws DecodingError with a clause where `head`
/// is no such executable or ends before it has named them all.
[[nodiscard]] CpuArchitectures architecturesOf(std::string_view head);

}  // namespace quillet
