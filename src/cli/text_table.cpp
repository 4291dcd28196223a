// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "cli/text_table.h"

#include <algorithm>
#include <iterator>

#include "base/columns.h"

namespace quillet {

namespace {

constexpr std::size_t kGap = 2;
// Without a terminal's width nothing is cut, but one long name must not push the columns of all the
// others away: it alone reaches beyond.
constexpr std::size_t kWidestPadding = 44;
constexpr std::size_t kNarrowest = 10;  // a cut text of fewer columns says nothing

struct Placed {
  std::size_t index;  // of the column
  std::size_t width;
};

std::string_view escapeCode(Ink ink) {
  switch (ink) {
    case Ink::plain: return "";
    case Ink::bold: return "\x1B[1m";
    case Ink::dim: return "\x1B[2m";
    case Ink::yellow: return "\x1B[33m";
    case Ink::green: return "\x1B[32m";
  }
  return "";
}

std::vector<Placed> naturalWidths(const std::vector<TableColumn>& columns,
                                  const std::vector<TableRow>& rows, bool headings) {
  std::vector<Placed> placed;
  for (std::size_t i = 0; i < columns.size(); ++i) {
    std::size_t width = 0;
    for (const TableRow& row : rows) width = std::max(width, columnCount(row[i]));
    // A column that no row fills is not shown at all.
    if (width == 0) continue;
    if (headings) width = std::max(width, columns[i].heading.size());
    if (!headings && columns[i].smallest > 0) width = std::min(width, kWidestPadding);
    placed.push_back({i, width});
  }
  return placed;
}

std::size_t totalWidth(const std::vector<Placed>& placed) {
  std::size_t total = 0;
  for (const Placed& column : placed) total += column.width + kGap;
  return total - std::min(total, kGap);
}

std::size_t smallestWidth(const TableColumn& column, std::size_t natural) {
  return column.smallest == 0 ? natural : std::min(column.smallest, natural);
}

/// Whether they would fit, each cut as far as it allows.
bool canFit(std::vector<Placed> placed, const std::vector<TableColumn>& columns,
            std::size_t width) {
  for (Placed& p : placed) p.width = smallestWidth(columns[p.index], p.width);
  return totalWidth(placed) <= width;
}

/// Leaves columns out until the rest can fit. Where a wide one had to go after narrower ones, those
/// that find room in its place come back.
void leaveOut(std::vector<Placed>& placed, const std::vector<TableColumn>& columns,
              std::size_t width) {
  std::vector<Placed> gone;
  for (int turn = 1; turn <= static_cast<int>(columns.size()); ++turn) {
    if (canFit(placed, columns, width)) break;
    const auto leaves = [&](const Placed& p) { return columns[p.index].leavesAs == turn; };
    std::ranges::copy_if(placed, std::back_inserter(gone), leaves);
    std::erase_if(placed, leaves);
  }
  for (auto last = gone.rbegin(); last != gone.rend(); ++last) {
    std::vector<Placed> more = placed;
    more.push_back(*last);
    std::ranges::sort(more, {}, &Placed::index);
    if (canFit(more, columns, width)) placed = std::move(more);
  }
}

/// Cuts the columns that allow it, the last one first, until the line fits; where nothing else is
/// left to do, further than they would like.
void cut(std::vector<Placed>& placed, const std::vector<TableColumn>& columns, std::size_t width) {
  for (const std::size_t most : {std::string_view::npos, kNarrowest}) {
    for (auto p = placed.rbegin(); p != placed.rend(); ++p) {
      const std::size_t total = totalWidth(placed);
      if (total <= width) return;
      const std::size_t smallest = smallestWidth(columns[p->index], p->width);
      const bool isCut = columns[p->index].smallest > 0;
      const std::size_t spare = p->width - (isCut ? std::min(smallest, most) : smallest);
      p->width -= std::min(spare, total - width);
    }
  }
}

std::string cell(std::string_view text, const TableColumn& column, std::size_t width, bool last,
                 const TextStyle& style) {
  const std::string fitted = style.width > 0 ? shortened(text, width, style) : std::string(text);
  if (column.align == Align::right) return rightAligned(fitted, width);
  const std::size_t count = columnCount(fitted);
  return last || count > width ? fitted : fitted + std::string(width - count, ' ');
}

std::string withoutTrailingBlanks(std::string line) {
  line.erase(line.find_last_not_of(' ') + 1);
  return line;
}

}  // namespace

std::string_view cutMark(const TextStyle& style) { return style.utf8 ? "…" : "..."; }

std::string_view dash(const TextStyle& style) { return style.utf8 ? "—" : "-"; }

std::string shortened(std::string_view text, std::size_t width, const TextStyle& style) {
  return shortened(text, width, cutMark(style));
}

std::string inked(std::string_view text, Ink ink, const TextStyle& style) {
  if (!style.colour || ink == Ink::plain || text.empty()) return std::string(text);
  return std::string(escapeCode(ink)) + std::string(text) + "\x1B[0m";
}

std::string renderTable(const std::vector<TableColumn>& columns, const std::vector<TableRow>& rows,
                        const TextStyle& style) {
  const bool headings = style.width > 0;
  std::vector<Placed> placed = naturalWidths(columns, rows, headings);
  if (style.width > 0) {
    leaveOut(placed, columns, style.width);
    cut(placed, columns, style.width);
  }
  std::string text;
  const auto addLine = [&](auto textOfColumn, auto inkOfColumn) {
    std::string line;
    for (const Placed& p : placed) {
      const bool last = &p == &placed.back();
      if (!line.empty()) line.append(kGap, ' ');
      line += inked(cell(textOfColumn(p.index), columns[p.index], p.width, last, style),
                    inkOfColumn(p.index), style);
    }
    text += withoutTrailingBlanks(std::move(line)) + '\n';
  };
  if (headings) {
    addLine([&](std::size_t i) { return columns[i].heading; },
            [](std::size_t) { return Ink::dim; });
  }
  for (const TableRow& row : rows) {
    addLine([&](std::size_t i) -> std::string_view { return row[i]; },
            [&](std::size_t i) { return columns[i].ink; });
  }
  return text;
}

}  // namespace quillet
