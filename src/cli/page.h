// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "cli/streams.h"
#include "cli/text_table.h"
#include "system/locale_formats.h"

namespace quillet {

inline constexpr std::size_t kPageLabelWidth = 14;  ///< the longest label and two blanks

/// Text for a person as it grows, line by line: blocks with an empty line between them.
class Page {
 public:
  Page(const TextStyle& style, const LocaleFormats& formats) : style_(style), formats_(formats) {}

  /// What the page is about, and who made it, as far as the terminal has room for both.
  void heading(std::string_view name, std::string_view seller);
  void line(std::string_view text, Ink ink = Ink::plain);
  /// Lines that end with a line feed each, as a table's do.
  void lines(std::string_view table) { text_ += table; }
  /// Leaves an empty line.
  void startBlock() { text_ += '\n'; }
  /// A labelled value; nothing where the value is empty.
  void fact(std::string_view label, std::string_view value, Ink ink = Ink::plain);
  /// The end of something that was cut.
  void note(std::string_view text);

  [[nodiscard]] const TextStyle& style() const { return style_; }
  [[nodiscard]] const LocaleFormats& formats() const { return formats_; }
  /// To wrap running text at: the terminal's, but no more than reads well.
  [[nodiscard]] std::size_t textWidth() const;

  /// The page without its last line feed, which the runner writes. Call once.
  [[nodiscard]] std::string take();

 private:
  TextStyle style_;
  const LocaleFormats& formats_;
  std::string text_;
};

/// Text from a store, wrapped and printable, without empty lines at the start or two in a row.
[[nodiscard]] std::vector<std::string> runningLines(std::string_view text, std::size_t width);

}  // namespace quillet
