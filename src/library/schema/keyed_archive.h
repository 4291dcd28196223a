// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace quillet {

// Arrays as the library stores them: keyed archives in a binary property list, which hold one
// array of plain values.

[[nodiscard]] std::string archive(const std::vector<std::int64_t>& values);
/// Invalid UTF-8 becomes U+FFFD.
[[nodiscard]] std::string archive(const std::vector<std::string>& values);

/// Reads an archived array of integers or strings; reals become whole numbers, without their
/// fraction. Absent for empty bytes, for anything that is no such archive, and where an element is
/// of another kind. Work and memory are bounded by a small multiple of the bytes.
template <typename Value>
[[nodiscard]] std::optional<std::vector<Value>> unarchive(std::string_view bytes);

template <>
std::optional<std::vector<std::int64_t>> unarchive(std::string_view bytes);
template <>
std::optional<std::vector<std::string>> unarchive(std::string_view bytes);

}  // namespace quillet
