// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace quillet {

/// Steps through a property list in XML, tag by tag. Throws DecodingError with a clause where the
/// text is none. `text` must outlive the scanner and what it hands out.
class XmlPlistScanner {
 public:
  struct Tag {
    enum class Kind { opening, closing, empty };

    Kind kind = Kind::opening;
    std::string_view name;

    [[nodiscard]] bool opens(std::string_view element) const;
    [[nodiscard]] bool closes(std::string_view element) const;
  };

  /// Passes what stands before the list's value.
  explicit XmlPlistScanner(std::string_view text);

  /// The next tag. Only white space, comments and instructions may stand before it.
  [[nodiscard]] Tag takeTag();

  /// The text of an element whose tag was just taken, and its end: entities decoded, valid UTF-8.
  [[nodiscard]] std::string takeText(const Tag& tag);

  /// The rest of an element whose tag was just taken, whatever it holds. Nothing recurses.
  void skip(const Tag& tag);

  [[noreturn]] void refuse(std::string_view complaint) const;

 private:
  void skipProlog();
  [[nodiscard]] bool skipSpaceAndComments();
  [[nodiscard]] bool take(std::string_view expected);
  /// What stands before `end`, which is passed too.
  std::string_view takeUntil(std::string_view end);
  Tag tagOf(std::string_view inside) const;
  std::string_view takeInsideOfTag();
  void appendEntity(std::string& text);
  void skipLeaf(const Tag& tag);

  std::string_view text_;
  std::size_t at_ = 0;
};

}  // namespace quillet
