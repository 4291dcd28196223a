// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "cli/folding.h"

#include "base/text.h"

namespace quillet {

namespace {

/// Our own: ESC [ … m.
std::string withoutColours(std::string_view text) {
  std::string plain;
  while (!text.empty()) {
    const std::size_t escape = std::min(text.find("\x1B["), text.size());
    plain += text.substr(0, escape);
    text.remove_prefix(escape);
    text.remove_prefix(text.empty() ? 0 : std::min(text.find('m'), text.size() - 1) + 1);
  }
  return plain;
}

class Fold {
 public:
  Fold(std::size_t width, ColumnMeasure measure) : width_(width), measure_(measure) {}

  [[nodiscard]] std::string line(std::string_view text) const {
    if (columns(text) <= width_) return std::string(text);
    const std::string margin(marginOf(text), ' ');
    std::string result;
    std::string_view rest = text;
    while (!rest.empty()) {
      const std::size_t taken = result.empty() ? 0 : margin.size();
      const std::size_t end = lineEnd(rest, width_ - taken, width_ - margin.size());
      if (!result.empty()) result.append("\n").append(margin);
      result += rest.substr(0, end);
      rest.remove_prefix(std::min(rest.find_first_not_of(' ', end), rest.size()));
    }
    return result;
  }

 private:
  [[nodiscard]] std::size_t columns(std::string_view text) const {
    return measure_(withoutColours(text));
  }

  /// Never more than half of the line, or nothing would be left to write in.
  [[nodiscard]] std::size_t marginOf(std::string_view line) const {
    const std::size_t start = std::min(line.find_first_not_of(' '), line.size());
    const std::size_t gap = line.find("  ", start);
    std::size_t margin = start;
    if (gap != std::string_view::npos) {
      const std::size_t second = columns(line.substr(0, line.find_first_not_of(' ', gap)));
      if (second <= width_ / 2) margin = second;
    }
    return margin <= width_ / 2 ? margin : 0;
  }

  /// Before the last blank at which the line fits, or the first one at all. A word that is wider
  /// than `widest`, what any further line holds, stays with its whole label: the terminal has to
  /// part it anyway.
  [[nodiscard]] std::size_t lineEnd(std::string_view text, std::size_t room,
                                    std::size_t widest) const {
    if (columns(text) <= room) return text.size();
    std::size_t end = text.size();
    const std::size_t start = std::min(text.find_first_not_of(' '), text.size());
    for (std::size_t blank = text.find(' ', start); blank != std::string_view::npos;) {
      const bool fits = columns(text.substr(0, blank)) <= room;
      if (end < text.size() && !fits) break;
      const std::size_t word = text.find_first_not_of(' ', blank);
      if (word == std::string_view::npos) return blank;
      const std::size_t next = text.find(' ', word);
      const bool staysBehind = fits && columns(text.substr(word, next - word)) > widest;
      end = staysBehind ? std::min(next, text.size()) : blank;
      blank = next;
    }
    return end;
  }

  std::size_t width_;
  ColumnMeasure measure_;
};

}  // namespace

std::string folded(std::string_view text, std::size_t width, ColumnMeasure measure) {
  if (width == 0) return std::string(text);
  const Fold fold(width, measure);
  std::string result;
  for (const std::string_view line : split(text, '\n')) {
    if (!result.empty() || line.data() != text.data()) result += '\n';
    result += fold.line(line);
  }
  return result;
}

}  // namespace quillet
