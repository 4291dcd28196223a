// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "base/text.h"

#include <algorithm>
#include <array>
#include <utility>

namespace quillet {

namespace {

unsigned char byteAt(std::string_view text, std::size_t i) {
  return static_cast<unsigned char>(text[i]);
}

bool isContinuation(std::string_view text, std::size_t i) {
  return i < text.size() && (byteAt(text, i) & 0xC0) == 0x80;
}

/// The lowest and highest second byte that makes a well-formed sequence: it rules out over-long
/// forms, surrogates and what lies beyond U+10FFFF (Unicode 15, table 3-7).
std::pair<unsigned char, unsigned char> secondByteRange(unsigned char lead) {
  switch (lead) {
    case 0xE0: return {0xA0, 0xBF};
    case 0xED: return {0x80, 0x9F};
    case 0xF0: return {0x90, 0xBF};
    case 0xF4: return {0x80, 0x8F};
    default: return {0x80, 0xBF};
  }
}

std::size_t lengthByLead(unsigned char lead) {
  if (lead < 0x80) return 1;
  if (lead >= 0xC2 && lead <= 0xDF) return 2;
  if (lead >= 0xE0 && lead <= 0xEF) return 3;
  if (lead >= 0xF0 && lead <= 0xF4) return 4;
  return 0;
}

/// C1 controls are the code points U+0080 to U+009F.
bool isC1(std::string_view sequence) {
  return sequence.size() == 2 && sequence[0] == '\xC2' && byteAt(sequence, 1) < 0xA0;
}

/// U+202A to U+202E and U+2066 to U+2069: a name that holds one could show the rest of its line,
/// our own words in it, the wrong way round.
bool turnsDirection(std::string_view sequence) {
  if (sequence.starts_with("\xE2\x80")) {
    return byteAt(sequence, 2) >= 0xAA && byteAt(sequence, 2) <= 0xAE;
  }
  return sequence.starts_with("\xE2\x81") && byteAt(sequence, 2) >= 0xA6 &&
         byteAt(sequence, 2) <= 0xA9;
}

bool isSpaceSequence(std::string_view sequence) {
  if (sequence.size() == 1) {
    const char c = sequence[0];
    return c == ' ' || (c >= '\t' && c <= '\r');
  }
  constexpr std::array<std::string_view, 8> kSpaces{
      "\xC2\x85",      // next line
      "\xC2\xA0",      // no-break space
      "\xE1\x9A\x80",  // ogham space mark
      "\xE2\x80\xA8",  // line separator
      "\xE2\x80\xA9",  // paragraph separator
      "\xE2\x80\xAF",  // narrow no-break space
      "\xE2\x81\x9F",  // medium mathematical space
      "\xE3\x80\x80",  // ideographic space
  };
  if (std::find(kSpaces.begin(), kSpaces.end(), sequence) != kSpaces.end()) return true;
  // The quads and thin spaces of U+2000 to U+200A.
  return sequence.size() == 3 && sequence.starts_with("\xE2\x80") && byteAt(sequence, 2) <= 0x8A;
}

}  // namespace

std::size_t utf8SequenceLength(std::string_view text) {
  if (text.empty()) return 0;
  const unsigned char lead = byteAt(text, 0);
  const std::size_t length = lengthByLead(lead);
  if (length < 2) return length;
  if (text.size() < length) return 0;
  const auto [lowest, highest] = secondByteRange(lead);
  if (byteAt(text, 1) < lowest || byteAt(text, 1) > highest) return 0;
  for (std::size_t i = 2; i < length; ++i) {
    if (!isContinuation(text, i)) return 0;
  }
  return length;
}

void appendUtf8(std::string& text, char32_t point) {
  const auto put = [&text](char32_t byte) { text += static_cast<char>(byte); };
  if (point < 0x80) {
    put(point);
  } else if (point < 0x800) {
    put(0xC0 | point >> 6);
    put(0x80 | (point & 0x3F));
  } else if ((point >= 0xD800 && point <= 0xDFFF) || point > 0x10FFFF) {
    text += kReplacementCharacter;
  } else if (point < 0x10000) {
    put(0xE0 | point >> 12);
    put(0x80 | (point >> 6 & 0x3F));
    put(0x80 | (point & 0x3F));
  } else {
    put(0xF0 | point >> 18);
    put(0x80 | (point >> 12 & 0x3F));
    put(0x80 | (point >> 6 & 0x3F));
    put(0x80 | (point & 0x3F));
  }
}

std::size_t codePointCount(std::string_view text) {
  return static_cast<std::size_t>(std::count_if(text.begin(), text.end(), [](char c) {
    return (static_cast<unsigned char>(c) & 0xC0) != 0x80;
  }));
}

std::string lowerAscii(std::string_view text) {
  std::string result(text);
  for (char& c : result) {
    if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
  }
  return result;
}

std::string_view trimmed(std::string_view text) {
  while (!text.empty()) {
    const std::size_t length = std::max<std::size_t>(utf8SequenceLength(text), 1);
    if (!isSpaceSequence(text.substr(0, length))) break;
    text.remove_prefix(length);
  }
  while (!text.empty()) {
    std::size_t start = text.size() - 1;
    while (start > 0 && text.size() - start < 3 && isContinuation(text, start)) --start;
    if (!isSpaceSequence(text.substr(start))) break;
    text = text.substr(0, start);
  }
  return text;
}

std::string printable(std::string_view text, LineFeeds lineFeeds) {
  std::string result;
  result.reserve(text.size());
  while (!text.empty()) {
    const std::size_t length = utf8SequenceLength(text);
    const std::string_view sequence = text.substr(0, std::max<std::size_t>(length, 1));
    const unsigned char c = byteAt(sequence, 0);
    if (length == 0) {
      result += kReplacementCharacter;
    } else if (c == '\n') {
      result += lineFeeds == LineFeeds::keep ? '\n' : ' ';
    } else if (c == '\t') {
      result += ' ';
    } else if (c >= 0x20 && c != 0x7F && !isC1(sequence) && !turnsDirection(sequence)) {
      result += sequence;
    }
    text.remove_prefix(sequence.size());
  }
  return result;
}

std::string shown(const std::optional<std::string>& text) { return printable(text.value_or("")); }

std::vector<std::string_view> split(std::string_view text, char separator) {
  std::vector<std::string_view> pieces;
  for (;;) {
    const std::size_t end = text.find(separator);
    pieces.push_back(text.substr(0, end));
    if (end == std::string_view::npos) return pieces;
    text.remove_prefix(end + 1);
  }
}

std::string join(const std::vector<std::string>& pieces, std::string_view separator) {
  std::string result;
  for (const std::string& piece : pieces) {
    if (&piece != &pieces.front()) result += separator;
    result += piece;
  }
  return result;
}

std::string shellQuoted(std::string_view text) {
  std::string result = "\"";
  for (const char c : text) {
    if (c == '\0') continue;
    // Between double quotes a shell gives a meaning to these four alone, and a prompt that keeps a
    // history to "!" too, which only single quotes take away.
    if (c == '\\' || c == '"' || c == '$' || c == '`') result += '\\';
    if (c == '!') {
      result += R"("'!'")";
    } else {
      result += c;
    }
  }
  return result + '"';
}

}  // namespace quillet
