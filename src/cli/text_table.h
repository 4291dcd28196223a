// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "cli/streams.h"

namespace quillet {

enum class Align { left, right };
enum class Ink { plain, bold, dim, yellow, green };

/// How one column of a table behaves when the terminal is narrow.
struct TableColumn {
  std::string_view heading;
  Align align = Align::left;
  Ink ink = Ink::plain;
  std::size_t smallest = 0;  ///< it may be cut to this width, in need further; 0: it is never cut
  int leavesAs = 0;          ///< columns leave in the order 1, 2, …; 0: it never leaves
};

using TableRow = std::vector<std::string>;

/// What ends a text that was cut.
[[nodiscard]] std::string_view cutMark(const TextStyle& style);

/// A dash, which also stands for a value that is not known.
[[nodiscard]] std::string_view dash(const TextStyle& style);

/// Text longer than `width` is cut to end with the mark of the style at exactly that width.
[[nodiscard]] std::string shortened(std::string_view text, std::size_t width,
                                    const TextStyle& style);

/// `text` in a colour or weight, where the style has them.
[[nodiscard]] std::string inked(std::string_view text, Ink ink, const TextStyle& style);

/// Aligned columns with two blanks between them, each line ended by a line feed, without trailing
/// blanks. Where the style has a width, headings are shown, and columns are left out and cut until
/// each line fits; without one nothing is lost, and a cell far longer than others reaches beyond
/// its column. Cells hold printable text.
[[nodiscard]] std::string renderTable(const std::vector<TableColumn>& columns,
                                      const std::vector<TableRow>& rows, const TextStyle& style);

}  // namespace quillet
