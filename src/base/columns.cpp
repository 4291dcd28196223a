// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "base/columns.h"

#include <unicode/brkiter.h>
#include <unicode/uchar.h>
#include <unicode/unistr.h>
#include <unicode/utext.h>

#include <algorithm>
#include <memory>

#include "base/text.h"

namespace quillet {

namespace {

constexpr UChar32 kSoftHyphen = 0xAD;
constexpr UChar32 kJoiner = 0x200D;
constexpr UChar32 kEmojiSelector = 0xFE0F;

// Below U+0080 every byte is a character of its own, but for a carriage return before a line feed.
bool isAscii(std::string_view text) {
  return std::all_of(text.begin(), text.end(), [](char c) { return c >= 0 && c != '\r'; });
}

/// Calls `visit` with the end offset of each part that `iterator` finds until it returns false.
template <typename Visitor>
void visitParts(std::unique_ptr<icu::BreakIterator> iterator, std::string_view text,
                Visitor visit) {
  UErrorCode status = U_ZERO_ERROR;
  UText* utf8 =
      utext_openUTF8(nullptr, text.data(), static_cast<std::int64_t>(text.size()), &status);
  if (iterator != nullptr && U_SUCCESS(status)) {
    iterator->setText(utf8, status);
    for (auto end = iterator->next(); end != icu::BreakIterator::DONE; end = iterator->next()) {
      if (!visit(static_cast<std::size_t>(end))) break;
    }
  }
  utext_close(utf8);
}

template <typename Visitor>
void visitCharacters(std::string_view text, Visitor visit) {
  UErrorCode status = U_ZERO_ERROR;
  visitParts(std::unique_ptr<icu::BreakIterator>(
                 icu::BreakIterator::createCharacterInstance(icu::Locale::getRoot(), status)),
             text, visit);
}

/// Takes the first code point off; negative for a byte that begins none.
UChar32 takePoint(std::string_view& text) {
  const std::string_view first = text.substr(0, utf8SequenceLength(text));
  text.remove_prefix(std::max<std::size_t>(first.size(), 1));
  if (first.empty()) return U_SENTINEL;
  return icu::UnicodeString::fromUTF8(std::string(first)).char32At(0);
}

bool isWide(UChar32 point) {
  const auto width = u_getIntPropertyValue(point, UCHAR_EAST_ASIAN_WIDTH);
  return width == U_EA_WIDE || width == U_EA_FULLWIDTH;
}

/// The vowels and the last consonant of a Korean syllable join the consonant before them.
bool joinsSyllable(UChar32 point) {
  const auto type = u_getIntPropertyValue(point, UCHAR_HANGUL_SYLLABLE_TYPE);
  return type == U_HST_VOWEL_JAMO || type == U_HST_TRAILING_JAMO;
}

std::size_t widthOf(UChar32 point) {
  if (point < 0) return 1;  // shown as U+FFFD
  constexpr auto kMarks = U_GC_MN_MASK | U_GC_ME_MASK | U_GC_CF_MASK;
  const bool isMark = (U_MASK(u_charType(point)) & kMarks) != 0 && point != kSoftHyphen;
  if (isMark || joinsSyllable(point)) return 0;
  return isWide(point) ? 2 : 1;
}

/// Emoji made of several code points are drawn as one sign of two columns; the parts of any other
/// character stand side by side.
std::size_t widthOfCharacter(std::string_view character) {
  std::string_view rest = character;
  const UChar32 first = takePoint(rest);
  const bool isPicture = u_hasBinaryProperty(first, UCHAR_EXTENDED_PICTOGRAPHIC) != 0;
  std::size_t width = widthOf(first);
  while (!rest.empty()) {
    const UChar32 point = takePoint(rest);
    if (point == kEmojiSelector && u_hasBinaryProperty(first, UCHAR_EMOJI) != 0) return 2;
    if (isPicture && (point == kJoiner || u_hasBinaryProperty(point, UCHAR_EMOJI_MODIFIER) != 0)) {
      return 2;
    }
    width += widthOf(point);
  }
  return width;
}

/// Some scripts set no blanks between words.
bool setsNoBlanks(std::string_view word) {
  if (isAscii(word)) return false;
  while (!word.empty()) {
    const UChar32 point = takePoint(word);
    if (point < 0) continue;
    if (isWide(point)) return true;
    if (u_getIntPropertyValue(point, UCHAR_LINE_BREAK) == U_LB_COMPLEX_CONTEXT) return true;
  }
  return false;
}

/// What must not be parted of what stands between two blanks.
std::vector<std::string_view> unbrokenParts(std::string_view word) {
  if (!setsNoBlanks(word)) return {word};
  std::vector<std::string_view> parts;
  std::size_t start = 0;
  UErrorCode status = U_ZERO_ERROR;
  visitParts(std::unique_ptr<icu::BreakIterator>(
                 icu::BreakIterator::createLineInstance(icu::Locale::getRoot(), status)),
             word, [&](std::size_t end) {
               parts.push_back(word.substr(start, end - start));
               start = end;
               return true;
             });
  return parts;
}

/// Lines that are filled from left to right.
class Lines {
 public:
  explicit Lines(std::size_t width) : width_(width) {}

  /// After a blank, where the line has begun, unless `joins` what stands before.
  void add(std::string_view part, bool joins) {
    const std::size_t width = columnCount(part);
    const std::size_t gap = line_.empty() || joins ? 0 : 1;
    if (!line_.empty() && lineWidth_ + gap + width > width_) {
      end();
    } else {
      line_.append(gap, ' ');
      lineWidth_ += gap;
    }
    line_ += part;
    lineWidth_ += width;
  }

  void end() {
    lines_.push_back(std::move(line_));
    line_.clear();
    lineWidth_ = 0;
  }

  std::vector<std::string> take() { return std::move(lines_); }

 private:
  std::size_t width_;
  std::size_t lineWidth_ = 0;
  std::string line_;
  std::vector<std::string> lines_;
};

}  // namespace

std::size_t columnCount(std::string_view text) {
  if (isAscii(text)) return text.size();
  std::size_t count = 0;
  std::size_t start = 0;
  visitCharacters(text, [&](std::size_t end) {
    count += widthOfCharacter(text.substr(start, end - start));
    start = end;
    return true;
  });
  return count;
}

std::string_view firstColumns(std::string_view text, std::size_t count) {
  if (isAscii(text)) return text.substr(0, count);
  std::size_t taken = 0;
  std::size_t start = 0;
  visitCharacters(text, [&](std::size_t end) {
    taken += widthOfCharacter(text.substr(start, end - start));
    if (taken > count) return false;
    start = end;
    return true;
  });
  return text.substr(0, start);
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
  if (columnCount(text) <= width) return std::string(text);
  const std::size_t markWidth = columnCount(mark);
  if (width < markWidth) return std::string(firstColumns(mark, width));
  return std::string(firstColumns(text, width - markWidth)).append(mark);
}

std::string column(std::string_view text, std::size_t width) {
  const std::size_t count = columnCount(text);
  return std::string(text) + std::string(count < width ? width - count : 1, ' ');
}

std::string rightAligned(std::string_view text, std::size_t width) {
  const std::size_t count = columnCount(text);
  return std::string(count < width ? width - count : 0, ' ') + std::string(text);
}

std::vector<std::string> wrapped(std::string_view text, std::size_t width) {
  Lines lines(width);
  for (const std::string_view paragraph : split(text, '\n')) {
    for (const std::string_view word : split(paragraph, ' ')) {
      if (word.empty()) continue;
      bool joins = false;
      for (const std::string_view part : unbrokenParts(word)) {
        lines.add(part, joins);
        joins = true;
      }
    }
    lines.end();
  }
  return lines.take();
}

}  // namespace quillet
