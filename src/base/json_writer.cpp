// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "base/json_writer.h"

#include <array>
#include <cassert>
#include <charconv>
#include <cmath>

#include "base/text.h"

namespace quillet {

namespace {

constexpr bool kChecksKeyOrder =
#ifdef NDEBUG
    false;
#else
    true;
#endif

/// Which bytes stand in a JSON text as they are; a table, for every byte of every listing asks.
constexpr std::array<bool, 256> kPlain = [] {
  std::array<bool, 256> plain{};
  for (unsigned char c = 0x20; c < 0x80; ++c) plain[c] = c != '"' && c != '\\';
  return plain;
}();

bool isPlain(unsigned char c) { return kPlain[c]; }

void appendEscaped(std::string& out, unsigned char c) {
  switch (c) {
    case '"': out += "\\\""; return;
    case '\\': out += "\\\\"; return;
    case '\b': out += "\\b"; return;
    case '\f': out += "\\f"; return;
    case '\n': out += "\\n"; return;
    case '\r': out += "\\r"; return;
    case '\t': out += "\\t"; return;
    default: break;
  }
  constexpr std::string_view kHex = "0123456789abcdef";
  out += "\\u00";
  out += kHex[c >> 4];
  out += kHex[c & 15];
}

void appendText(std::string& out, std::string_view text) {
  std::size_t i = 0;
  while (i < text.size()) {
    std::size_t end = i;
    while (end < text.size() && isPlain(static_cast<unsigned char>(text[end]))) ++end;
    out.append(text, i, end - i);
    i = end;
    if (i == text.size()) return;
    const auto c = static_cast<unsigned char>(text[i]);
    if (c < 0x80) {
      appendEscaped(out, c);
      ++i;
    } else if (const std::size_t length = utf8SequenceLength(text.substr(i)); length > 0) {
      out.append(text, i, length);
      i += length;
    } else {
      out += kReplacementCharacter;
      ++i;
    }
  }
}

template <typename... Arguments>
void appendDigits(std::string& out, Arguments... arguments) {
  char digits[32];
  const auto end = std::to_chars(std::begin(digits), std::end(digits), arguments...).ptr;
  out.append(digits, end);
}

/// As people write prices: 100000, not 1e+05, which is shorter.
void appendNumber(std::string& out, double number) {
  // Written in full, a number beyond 64 bits looks like an integer that most readers refuse.
  constexpr double kIntegerLimit = 9223372036854775808.0;
  constexpr double kSmallest = 1e-6;
  const double size = std::abs(number);
  if (number == 0) {
    out += '0';  // "-0" is valid but means nothing to a reader of prices
  } else if (size >= kIntegerLimit || size < kSmallest) {
    appendDigits(out, number, std::chars_format::scientific);
  } else {
    appendDigits(out, number, std::chars_format::fixed);
  }
}

}  // namespace

void JsonWriter::beginObject() { open('{'); }
void JsonWriter::endObject() { close('}'); }
void JsonWriter::beginArray() { open('['); }
void JsonWriter::endArray() { close(']'); }

void JsonWriter::open(char bracket) {
  beforeValue();
  out_ += bracket;
  levels_.emplace_back();
}

void JsonWriter::close(char bracket) {
  assert(!levels_.empty() && !afterKey_);
  const bool empty = levels_.back().empty;
  levels_.pop_back();
  if (!empty) newLine();
  out_ += bracket;
}

void JsonWriter::newLine() {
  if (layout_ == JsonLayout::compact) return;
  constexpr std::string_view kIndent = "\n                                ";
  const std::size_t width = levels_.size() * 2 + 1;
  out_.append(kIndent.substr(0, width));
  if (width > kIndent.size()) out_.append(width - kIndent.size(), ' ');
}

void JsonWriter::key(std::string_view name) {
  Level& level = levels_.back();
  if constexpr (kChecksKeyOrder) {
    assert((order_ == KeyOrder::asWritten || level.empty || level.lastKey < name) &&
           "keys must be written in ascending order");
    level.lastKey = name;
  }
  if (!level.empty) out_ += ',';
  level.empty = false;
  newLine();
  out_ += '"';
  appendText(out_, name);
  out_.append("\": ", layout_ == JsonLayout::compact ? 2 : 3);
  afterKey_ = true;
}

void JsonWriter::beforeValue() {
  if (afterKey_) {
    afterKey_ = false;
    return;
  }
  if (levels_.empty()) return;
  if (!levels_.back().empty) out_ += ',';
  levels_.back().empty = false;
  newLine();
}

void JsonWriter::value(std::string_view text) {
  beforeValue();
  out_ += '"';
  appendText(out_, text);
  out_ += '"';
}

void JsonWriter::value(bool flag) {
  beforeValue();
  out_ += flag ? "true" : "false";
}

void JsonWriter::value(double number) {
  beforeValue();
  if (!std::isfinite(number)) {
    out_ += "null";
    return;
  }
  appendNumber(out_, number);
}

void JsonWriter::value(Instant instant) { value(std::string_view(formatInternetDate(instant))); }

void JsonWriter::writeInteger(std::int64_t number) {
  beforeValue();
  appendDigits(out_, number);
}

void JsonWriter::writeInteger(std::uint64_t number) {
  beforeValue();
  appendDigits(out_, number);
}

std::string JsonWriter::take() {
  assert(levels_.empty() && "an object or array is still open");
  return std::move(out_);
}

}  // namespace quillet
