// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "base/columns.h"

#include <unicode/brkiter.h>
#include <unicode/utext.h>

#include <algorithm>
#include <memory>

#include "base/text.h"

namespace quillet {

namespace {

// Below U+0080 every byte is a character of its own, but for a carriage return before a line feed.
bool isAscii(std::string_view text) {
  return std::all_of(text.begin(), text.end(), [](char c) { return c >= 0 && c != '\r'; });
}

/// Calls `visit` with the end offset of each character until it returns false.
template <typename Visitor>
void visitCharacters(std::string_view text, Visitor visit) {
  UErrorCode status = U_ZERO_ERROR;
  const std::unique_ptr<icu::BreakIterator> iterator(
      icu::BreakIterator::createCharacterInstance(icu::Locale::getRoot(), status));
  UText* utf8 =
      utext_openUTF8(nullptr, text.data(), static_cast<std::int64_t>(text.size()), &status);
  if (U_SUCCESS(status)) {
    iterator->setText(utf8, status);
    for (auto end = iterator->next(); end != icu::BreakIterator::DONE; end = iterator->next()) {
      if (!visit(static_cast<std::size_t>(end))) break;
    }
  }
  utext_close(utf8);
}

}  // namespace

std::size_t characterCount(std::string_view text) {
  if (isAscii(text)) return text.size();
  std::size_t count = 0;
  visitCharacters(text, [&count](std::size_t) {
    ++count;
    return true;
  });
  return count;
}

std::string_view firstCharacters(std::string_view text, std::size_t count) {
  if (count == 0) return {};
  if (isAscii(text)) return text.substr(0, count);
  std::size_t seen = 0;
  std::size_t end = 0;
  visitCharacters(text, [&](std::size_t characterEnd) {
    end = characterEnd;
    return ++seen < count;
  });
  return text.substr(0, end);
}

std::string shortened(std::string_view text, std::size_t width, std::string_view mark) {
  if (characterCount(text) <= width) return std::string(text);
  const std::size_t markWidth = characterCount(mark);
  if (width < markWidth) return std::string(firstCharacters(mark, width));
  return std::string(firstCharacters(text, width - markWidth)).append(mark);
}

std::string column(std::string_view text, std::size_t width) {
  const std::size_t count = characterCount(text);
  return std::string(text) + std::string(count < width ? width - count : 1, ' ');
}

std::string rightAligned(std::string_view text, std::size_t width) {
  const std::size_t count = characterCount(text);
  return std::string(count < width ? width - count : 0, ' ') + std::string(text);
}

std::vector<std::string> wrapped(std::string_view text, std::size_t width) {
  std::vector<std::string> lines;
  for (const std::string_view paragraph : split(text, '\n')) {
    std::string line;
    std::size_t lineWidth = 0;
    for (const std::string_view word : split(paragraph, ' ')) {
      if (word.empty()) continue;
      const std::size_t wordWidth = characterCount(word);
      if (!line.empty() && lineWidth + 1 + wordWidth > width) {
        lines.push_back(std::move(line));
        line.clear();
        lineWidth = 0;
      }
      if (!line.empty()) {
        line += ' ';
        ++lineWidth;
      }
      line += word;
      lineWidth += wordWidth;
    }
    lines.push_back(std::move(line));
  }
  return lines;
}

}  // namespace quillet
