// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "cli/online/prices/step_chart.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <vector>

#include "analysis/price_record.h"
#include "base/columns.h"

namespace quillet {

namespace {

constexpr std::size_t kMostRows = 6;
constexpr std::size_t kRowsOfTwo = 3;  // where the price has had two values
constexpr std::size_t kFewestColumns = 24;

// What leaves a cell at its sides; the sum names its character.
constexpr unsigned kUp = 1;
constexpr unsigned kDown = 2;
constexpr unsigned kLeft = 4;
constexpr unsigned kRight = 8;

constexpr std::array<std::string_view, 16> kLines{" ", "╵", "╷", "│", "╴", "┘", "┐", "┤",
                                                  "╶", "└", "┌", "├", "─", "┴", "┬", "┼"};
constexpr std::string_view kAsciiLines = " |||-+++-+++-+++";

/// A rectangle of cells in which a line is drawn from left to right.
class Canvas {
 public:
  Canvas(std::size_t rows, std::size_t columns)
      : columns_(columns), cells_(rows, std::vector<unsigned>(columns)) {}

  /// The line goes on through a column without a change.
  void goOn(std::size_t row, std::size_t column) { cells_[row][column] |= kLeft | kRight; }

  /// The line enters a column in one row and leaves it in another.
  void change(std::size_t from, std::size_t to, std::size_t column) {
    cells_[from][column] |= kLeft;
    cells_[from][column] &= ~kRight;
    for (std::size_t row = std::min(from, to); row < std::max(from, to); ++row) {
      cells_[row][column] |= kDown;
      cells_[row + 1][column] |= kUp;
    }
    cells_[to][column] |= kRight;
  }

  [[nodiscard]] std::size_t columns() const { return columns_; }

  [[nodiscard]] std::string line(std::size_t row, const TextStyle& style) const {
    std::string text;
    for (const unsigned cell : cells_[row]) {
      text += style.utf8 ? kLines[cell] : kAsciiLines.substr(cell, 1);
    }
    text.erase(text.find_last_not_of(' ') + 1);
    return text;
  }

 private:
  std::size_t columns_;
  std::vector<std::vector<unsigned>> cells_;
};

/// Which row shows a price, the highest in row 0.
class PriceRows {
 public:
  explicit PriceRows(std::span<const PriceSeed::Point> points)
      : highest_(highestOf(points).price), lowest_(lowestOf(points).price) {
    const bool two = std::all_of(points.begin(), points.end(), [this](const auto& point) {
      return point.price == highest_ || point.price == lowest_;
    });
    if (highest_ > lowest_) count_ = two ? kRowsOfTwo : kMostRows;
  }

  [[nodiscard]] std::size_t count() const { return count_; }
  [[nodiscard]] double highest() const { return highest_; }
  [[nodiscard]] double lowest() const { return lowest_; }
  [[nodiscard]] std::size_t of(double price) const {
    if (count_ == 1) return 0;
    const double share = (highest_ - price) / (highest_ - lowest_);
    return static_cast<std::size_t>(std::lround(share * static_cast<double>(count_ - 1)));
  }

 private:
  double highest_;
  double lowest_;
  std::size_t count_ = 1;
};

void draw(Canvas& canvas, std::span<const PriceSeed::Point> points, const PriceRows& rows,
          std::chrono::sys_days end) {
  const auto columnOf = [&](std::chrono::sys_days day) {
    const auto span = std::max<std::int64_t>((end - points.front().day).count(), 1);
    const auto passed = std::clamp<std::int64_t>((day - points.front().day).count(), 0, span);
    return static_cast<std::size_t>(passed) * (canvas.columns() - 1) /
           static_cast<std::size_t>(span);
  };
  std::size_t row = rows.of(points.front().price);
  std::size_t next = 0;
  for (const PriceSeed::Point& point : points) {
    for (; next <= columnOf(point.day); ++next) canvas.goOn(row, next);
    const std::size_t to = rows.of(point.price);
    if (to != row) canvas.change(row, to, next - 1);
    row = to;
  }
  for (; next < canvas.columns(); ++next) canvas.goOn(row, next);
}

}  // namespace

std::string stepChart(std::span<const PriceSeed::Point> points, const StepChartFrame& frame,
                      const std::function<std::string(double)>& labelOf, const TextStyle& style) {
  const PriceRows rows(points);
  const double now = points.back().price;
  std::vector<std::string> labels(rows.count());
  for (const double price : {now, rows.lowest(), rows.highest()}) {
    labels[rows.of(price)] = labelOf(price);
  }
  std::size_t labelWidth = 0;
  for (const std::string& label : labels) labelWidth = std::max(labelWidth, columnCount(label));
  const std::size_t taken = labelWidth + 1;
  Canvas canvas(rows.count(), std::max(kFewestColumns, frame.width - std::min(frame.width, taken)));
  draw(canvas, points, rows, frame.end);

  std::string text;
  for (std::size_t row = 0; row < rows.count(); ++row) {
    text += rightAligned(labels[row], labelWidth) + ' ' + canvas.line(row, style) + '\n';
  }
  const std::string first = formatDay(points.front().day);
  const std::string last = formatDay(frame.end);
  return text + std::string(taken, ' ') + first +
         rightAligned(last, canvas.columns() - first.size()) + '\n';
}

}  // namespace quillet
