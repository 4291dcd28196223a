// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace quillet {

/// A view of one object within a property list; valid as long as the bytes are.
struct PlistObject {
  enum class Type { boolean, integer, real, ascii, utf16, uid, array, dictionary, other };

  Type type = Type::other;
  /// Elements of an array, entries of a dictionary, bytes of anything else.
  std::size_t count = 0;
  std::string_view payload;
};

/// Looks into a binary property list without building anything of it: each step is bounded by the
/// bytes at hand, nothing recurses, and objects are followed only as the caller asks. Every
/// question to a damaged list answers nothing.
class BinaryPlistReader {
 public:
  /// `bytes` must outlive the reader. Absent when they hold no property list.
  [[nodiscard]] static std::optional<BinaryPlistReader> open(std::string_view bytes);

  [[nodiscard]] std::optional<PlistObject> root() const { return object(root_); }

  /// What `array` holds at `index`.
  [[nodiscard]] std::optional<PlistObject> element(const PlistObject& array,
                                                   std::uint64_t index) const;

  /// What `dictionary` holds under an ASCII key.
  [[nodiscard]] std::optional<PlistObject> value(const PlistObject& dictionary,
                                                 std::string_view key) const;

 private:
  [[nodiscard]] std::optional<PlistObject> object(std::uint64_t number) const;
  [[nodiscard]] std::optional<PlistObject> referred(std::string_view payload,
                                                    std::uint64_t index) const;

  std::string_view body_;  ///< up to the table of offsets
  std::string_view offsets_;
  std::size_t offsetWidth_ = 0;
  std::size_t refWidth_ = 0;
  std::uint64_t root_ = 0;
};

// The value of an object; absent when it is of another type or does not fit. Numbers convert:
// booleans are 0 and 1, a real loses its fraction where a whole number is asked for.
[[nodiscard]] std::optional<std::int64_t> plistInteger(const PlistObject& object);
[[nodiscard]] std::optional<std::string> plistText(const PlistObject& object);
[[nodiscard]] std::optional<std::uint64_t> plistUid(const PlistObject& object);

}  // namespace quillet
