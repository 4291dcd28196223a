// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "base/json_scanner.h"

#include <array>
#include <bit>
#include <charconv>
#include <cstddef>
#include <cstdint>
#include <cstring>

#include "base/errors.h"

namespace quillet {
namespace {

bool isDigit(char c) { return c >= '0' && c <= '9'; }
bool endsScalar(char c) {
  return static_cast<unsigned char>(c) <= ' ' || c == ',' || c == ']' || c == '}' || c == ':';
}

/// What a string cannot hold as it is: its end, an escape, control characters.
bool isSpecial(char c) { return c == '"' || c == '\\' || static_cast<unsigned char>(c) < 0x20; }

constexpr std::uint64_t everyByte(std::uint64_t byte) { return byte * 0x0101010101010101U; }

/// The highest bit of each byte that is less than `bound` (at most 128), up to the first: what
/// stands behind that is not to be relied on.
std::uint64_t bytesBelow(std::uint64_t bytes, std::uint64_t bound) {
  return (bytes - everyByte(bound)) & ~bytes & everyByte(0x80);
}

/// The first special character, or `end`. Names have some twenty letters: eight at a time.
const char* findSpecial(const char* at, const char* end) {
  if constexpr (std::endian::native == std::endian::little) {
    for (; end - at >= 8; at += 8) {
      std::uint64_t bytes = 0;
      std::memcpy(&bytes, at, sizeof bytes);
      const std::uint64_t found = bytesBelow(bytes, 0x20) | bytesBelow(bytes ^ everyByte('"'), 1) |
                                  bytesBelow(bytes ^ everyByte('\\'), 1);
      if (found != 0) return at + std::countr_zero(found) / 8;
    }
  }
  while (at != end && !isSpecial(*at)) ++at;
  return at;
}

const char* skipDigits(const char* at, const char* end) {
  while (at != end && isDigit(*at)) ++at;
  return at;
}

/// A plain decimal number, as nearly every price is, and where it ends.
struct PlainNumber {
  double value = 0;
  const char* end = nullptr;
};

/// Absent for numbers of another form, among them those with more digits than a double is sure to
/// hold: up to there one division gives the nearest one.
std::optional<PlainNumber> plainNumber(const char* at, const char* end) {
  constexpr std::array<double, 16> kPowers{1e0, 1e1, 1e2,  1e3,  1e4,  1e5,  1e6,  1e7,
                                           1e8, 1e9, 1e10, 1e11, 1e12, 1e13, 1e14, 1e15};
  const char* const start = at;
  const char* point = nullptr;
  std::uint64_t digits = 0;
  for (; at != end && at - start < static_cast<std::ptrdiff_t>(kPowers.size()); ++at) {
    if (isDigit(*at)) {
      digits = digits * 10 + static_cast<std::uint64_t>(*at - '0');
    } else if (*at == '.' && point == nullptr) {
      point = at;
    } else {
      break;
    }
  }
  if (at == end || !endsScalar(*at)) return {};
  const char* const wholeEnd = point == nullptr ? at : point;
  const auto places = point == nullptr ? 0 : at - point - 1;
  const bool isJson = wholeEnd != start && (*start != '0' || wholeEnd - start == 1) &&
                      (point == nullptr || places > 0);
  if (!isJson) return {};
  return PlainNumber{static_cast<double>(digits) / kPowers[static_cast<std::size_t>(places)], at};
}

/// The end of a number as JSON writes it; null where there is none.
const char* endOfNumber(const char* at, const char* end) {
  if (at != end && *at == '-') ++at;
  const char* const whole = at;
  at = skipDigits(at, end);
  if (at == whole || (*whole == '0' && at - whole > 1)) return nullptr;
  if (at != end && *at == '.') {
    const char* const fraction = at + 1;
    at = skipDigits(fraction, end);
    if (at == fraction) return nullptr;
  }
  if (at != end && (*at == 'e' || *at == 'E')) {
    ++at;
    if (at != end && (*at == '+' || *at == '-')) ++at;
    const char* const exponent = at;
    at = skipDigits(at, end);
    if (at == exponent) return nullptr;
  }
  return at;
}

}  // namespace

void JsonScanner::refuse() { throw DecodingError("Something else is expected there"); }

std::string_view JsonScanner::takeString() {
  expect('"');
  const char* const start = at_;
  for (;;) {
    at_ = findSpecial(at_, end_);
    if (at_ == end_ || static_cast<unsigned char>(*at_) < 0x20) break;
    if (*at_ == '"') return {start, static_cast<std::size_t>(at_++ - start)};
    if (end_ - at_ < 2) break;
    at_ += 2;
  }
  throw DecodingError("A string does not end");
}

std::string_view JsonScanner::takeScalar() {
  skipSpace();
  const char* const start = at_;
  while (at_ != end_ && !endsScalar(*at_)) ++at_;
  if (at_ == start) throw DecodingError("A value is missing");
  return {start, static_cast<std::size_t>(at_ - start)};
}

std::optional<double> JsonScanner::takeNumber() {
  const char first = next();
  if (const auto plain = plainNumber(at_, end_)) {
    at_ = plain->end;
    return plain->value;
  }
  if (first != '-' && !isDigit(first)) {
    skipValue();
    return {};
  }
  const char* const start = at_;
  takeScalar();
  double number = 0;
  const bool isWhole = endOfNumber(start, at_) == at_;
  if (!isWhole || std::from_chars(start, at_, number).ec != std::errc()) return {};
  return number;
}

void JsonScanner::skipValue() {
  const char first = next();
  if (first == '"') {
    static_cast<void>(takeString());
  } else if (first == '{' || first == '[') {
    skipNested();
  } else {
    takeScalar();
  }
}

std::string_view JsonScanner::takeValue() {
  skipSpace();
  const char* const start = at_;
  skipValue();
  return {start, static_cast<std::size_t>(at_ - start)};
}

std::optional<JsonScanner> JsonScanner::findMember(std::string_view key) const {
  JsonScanner scanner = *this;
  scanner.expect('{');
  if (scanner.take('}')) return {};
  do {
    const bool isWanted = scanner.takeString() == key;
    scanner.expect(':');
    if (isWanted) return scanner;
    scanner.skipValue();
  } while (scanner.take(','));
  scanner.expect('}');
  return {};
}

/// Not by recursion: damaged files may be nested as deep as they are long.
void JsonScanner::skipNested() {
  std::size_t depth = 0;
  do {
    const char first = next();
    if (at_ == end_) throw DecodingError("A bracket is not closed");
    if (first == '"') {
      static_cast<void>(takeString());
      continue;
    }
    if (first == '{' || first == '[') ++depth;
    if (first == '}' || first == ']') --depth;
    ++at_;
  } while (depth > 0);
}

}  // namespace quillet
