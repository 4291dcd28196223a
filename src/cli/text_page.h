// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "cli/text_table.h"
#include "system/locale_formats.h"

namespace quillet {

/// A page for people as it grows: a heading, labelled facts, blocks with an empty line between
/// them. What goes in is printable text.
class TextPage {
 public:
  /// The place of a label: the longest one and two blanks.
  static constexpr std::size_t kLabelWidth = 14;

  TextPage(const TextStyle& style, const LocaleFormats& formats)
      : style_(style), formats_(formats) {}

  /// What the page is about, and who made it.
  void heading(std::string_view name, std::string_view seller);
  void line(std::string_view text, Ink ink = Ink::plain);
  /// Lines with their ends, as a table has them.
  void lines(std::string_view table) { text_ += table; }
  void startBlock() { text_ += '\n'; }
  /// Left out where the value is empty.
  void fact(std::string_view label, std::string_view value, Ink ink = Ink::plain);
  /// The end of something that was cut.
  void note(std::string_view text);

  [[nodiscard]] const TextStyle& style() const { return style_; }
  [[nodiscard]] const LocaleFormats& formats() const { return formats_; }
  /// At most what reads well, however wide the terminal is.
  [[nodiscard]] std::size_t textWidth() const;

  /// The page without its last line's end.
  [[nodiscard]] std::string take();

 private:
  TextStyle style_;
  const LocaleFormats& formats_;
  std::string text_;
};

}  // namespace quillet
