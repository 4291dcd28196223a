// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <cstddef>
#include <cstdint>
#include <map>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <variant>

namespace quillet {

using PlistScalar = std::variant<std::int64_t, std::string>;

/// Texts and whole numbers by their keys. What is of another type is left out.
using PlistScalars = std::map<std::string, PlistScalar, std::less<>>;

inline constexpr std::size_t kLargestPlist = std::size_t{1024} * 1024;
inline constexpr std::size_t kDeepestPlist = 64;

/// Reads what stands under `keys`, which are ASCII, in the outermost dictionary of a property list,
/// be it XML in UTF-8 or binary. Texts are valid UTF-8; which value counts of a key that stands
/// there twice is not promised. Throws DecodingError with a clause ("it holds no dictionary (byte
/// 12)") where `bytes` are no property list, hold no dictionary, or pass the limits above. XML that
/// is passed over has to be well nested and is not looked at more closely; entities beyond XML's
/// own five are refused, and so is a document that declares any. Time and memory are bounded by the
/// bytes and the keys.
[[nodiscard]] PlistScalars readPlistScalars(std::string_view bytes,
                                            std::span<const std::string_view> keys);

[[nodiscard]] std::optional<std::string> textAt(const PlistScalars& scalars, std::string_view key);

/// Of a number, or of a text that is one.
[[nodiscard]] std::optional<std::int64_t> wholeAt(const PlistScalars& scalars,
                                                  std::string_view key);

}  // namespace quillet
