// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "system/ini_value.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <utility>

#include "base/text.h"

namespace quillet {

namespace {

// Letters after a backslash that stand for another character; any other stands for itself.
constexpr std::array<std::pair<char, char>, 7> kEscapes{
    {{'a', '\a'}, {'b', '\b'}, {'f', '\f'}, {'n', '\n'}, {'r', '\r'}, {'t', '\t'}, {'v', '\v'}}};

char unescaped(char letter) {
  for (const auto& [name, character] : kEscapes) {
    if (name == letter) return character;
  }
  return letter;
}

/// 16 and more for what is no hexadecimal digit.
std::uint32_t digitValue(char c) {
  if (c >= '0' && c <= '9') return static_cast<std::uint32_t>(c - '0');
  if (c >= 'a' && c <= 'f') return static_cast<std::uint32_t>(c - 'a') + 10;
  if (c >= 'A' && c <= 'F') return static_cast<std::uint32_t>(c - 'A') + 10;
  return 16;
}

bool isHighSurrogate(std::uint32_t unit) { return unit >= 0xD800 && unit <= 0xDBFF; }

bool isLowSurrogate(std::uint32_t unit) { return unit >= 0xDC00 && unit <= 0xDFFF; }

/// Undoes quotes and escapes. Numeric escapes are UTF-16 code units, so that a character beyond
/// U+FFFF arrives as two of them; half a pair becomes U+FFFD.
class ValueReader {
 public:
  explicit ValueReader(std::string_view raw) : rest_(raw) {}

  std::string read() {
    while (!rest_.empty()) {
      const char c = take();
      if (c == '\\') {
        readEscape();
      } else if (c != '"') {
        append(c);
      }
    }
    dropHalfPair();
    return std::move(out_);
  }

 private:
  char take() {
    const char c = rest_.front();
    rest_.remove_prefix(1);
    return c;
  }

  void readEscape() {
    if (rest_.empty()) return;
    if (digitValue(rest_.front()) < 8) {
      appendUnit(readNumber(8));
      return;
    }
    const char letter = take();
    if (letter == 'x') {
      appendUnit(readNumber(16));
    } else {
      append(unescaped(letter));
    }
  }

  std::uint32_t readNumber(std::uint32_t base) {
    constexpr std::uint32_t kTooLarge = 0x10000;
    std::uint32_t number = 0;
    while (!rest_.empty() && digitValue(rest_.front()) < base) {
      number = std::min(number * base + digitValue(take()), kTooLarge);
    }
    return number;
  }

  void append(char c) {
    dropHalfPair();
    out_ += c;
  }

  void appendUnit(std::uint32_t unit) {
    if (highSurrogate_ != 0 && isLowSurrogate(unit)) {
      appendUtf8(out_, 0x10000 + ((highSurrogate_ - 0xD800) << 10) + (unit - 0xDC00));
      highSurrogate_ = 0;
      return;
    }
    dropHalfPair();
    if (isHighSurrogate(unit)) {
      highSurrogate_ = unit;
    } else if (isLowSurrogate(unit) || unit > 0xFFFF) {
      out_ += kReplacementCharacter;
    } else {
      appendUtf8(out_, unit);
    }
  }

  void dropHalfPair() {
    if (highSurrogate_ != 0) out_ += kReplacementCharacter;
    highSurrogate_ = 0;
  }

  std::string_view rest_;
  std::string out_;
  std::uint32_t highSurrogate_ = 0;
};

std::string numericEscape(unsigned char byte) {
  std::string escape = "\\000";
  for (std::size_t place = escape.size(); place-- > 1; byte /= 8) {
    escape[place] = static_cast<char>('0' + byte % 8);
  }
  return escape;
}

/// "@Type(…)": something else than a text.
bool isTyped(std::string_view raw) {
  return raw.starts_with('@') && raw.ends_with(')') && raw.find('(') != std::string_view::npos;
}

}  // namespace

std::optional<std::string> iniValueText(std::string_view raw) {
  raw = trimmed(raw);
  if (!raw.starts_with("@@") && isTyped(raw)) return {};
  std::string text = ValueReader(raw).read();
  // A text that begins with "@" was written with a second one.
  if (text.starts_with("@@")) text.erase(0, 1);
  return text;
}

std::string iniValue(std::string_view text) {
  std::string raw = "\"";
  // A leading "@" would announce another type.
  if (text.starts_with('@')) raw += '@';
  bool afterNumber = false;
  for (const char c : text) {
    const auto byte = static_cast<unsigned char>(c);
    // A numeric escape takes in every digit that follows it.
    afterNumber = byte < 0x20 || byte == 0x7F || (afterNumber && digitValue(c) < 8);
    if (afterNumber) {
      raw += numericEscape(byte);
    } else {
      if (c == '"' || c == '\\') raw += '\\';
      raw += c;
    }
  }
  return raw + '"';
}

}  // namespace quillet
