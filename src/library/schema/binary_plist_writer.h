// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <cstddef>
#include <cstdint>
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
  Ref addArray(std::vector<Ref> elements);
  Ref addDictionary(const std::vector<std::pair<Ref, Ref>>& entries);

  /// The whole list, whose outermost object is `root`.
  [[nodiscard]] std::string finish(Ref root) const;

 private:
  struct Object {
    std::string head;
    std::vector<Ref> references;
  };

  Ref add(std::string head, std::vector<Ref> references = {});

  std::vector<Object> objects_;
};

}  // namespace quillet
