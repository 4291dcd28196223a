// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace quillet {

/// Builds a binary property list from the leaves up: each add returns the number that collections
/// name the object by.
class BinaryPlistWriter {
 public:
  using Ref = std::size_t;

  Ref addInteger(std::int64_t value);
  /// Invalid UTF-8 becomes U+FFFD.
  Ref addText(std::string_view utf8);
  Ref addUid(std::uint32_t value);
  Ref addArray(std::span<const Ref> elements);
  Ref addDictionary(std::initializer_list<std::pair<Ref, Ref>> entries);

  /// The whole list, whose outermost object is `root`.
  [[nodiscard]] std::string finish(Ref root) const;

 private:
  /// Where an object ends within heads_ and references_; it begins where the one before ends.
  struct Object {
    std::size_t headEnd;
    std::size_t referencesEnd;
  };

  /// Makes an object of what was appended since the one before.
  Ref endObject();

  std::string heads_;
  std::vector<Ref> references_;
  std::vector<Object> objects_;
};

}  // namespace quillet
