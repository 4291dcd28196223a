// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "base/binary_plist_reader.h"

#include <unicode/utf16.h>

#include <algorithm>
#include <array>
#include <bit>
#include <cmath>
#include <limits>

#include "base/text.h"

namespace quillet {
namespace {

using Type = PlistObject::Type;

constexpr std::string_view kMagic = "bplist";
constexpr std::size_t kHeaderSize = 8;
constexpr std::size_t kTrailerSize = 32;
constexpr std::size_t kWidest = 8;

std::uint64_t bigEndian(std::string_view bytes) {
  std::uint64_t value = 0;
  for (const char byte : bytes) value = value << 8 | static_cast<unsigned char>(byte);
  return value;
}

struct Trailer {
  std::size_t offsetWidth;
  std::size_t refWidth;
  std::uint64_t objects;
  std::uint64_t root;
  std::uint64_t table;
};

Trailer trailerOf(std::string_view bytes) {
  const std::string_view trailer = bytes.substr(bytes.size() - kTrailerSize);
  return {static_cast<unsigned char>(trailer[6]), static_cast<unsigned char>(trailer[7]),
          bigEndian(trailer.substr(8, 8)), bigEndian(trailer.substr(16, 8)),
          bigEndian(trailer.substr(24, 8))};
}

bool isWidth(std::size_t width) { return width >= 1 && width <= kWidest; }

/// Integers have 1, 2, 4, 8 or 16 bytes.
std::optional<std::size_t> integerSize(unsigned low) {
  if (low > 4) return std::nullopt;
  return std::size_t{1} << low;
}

/// An object's length, taken off `rest` where it follows the marker.
std::optional<std::uint64_t> lengthOf(unsigned low, std::string_view& rest) {
  if (low < 15) return low;
  if (rest.empty()) return std::nullopt;
  const auto marker = static_cast<unsigned char>(rest.front());
  const auto size = integerSize(marker & 0x0F);
  if (marker >> 4 != 1 || !size || *size > kWidest || rest.size() <= *size) return std::nullopt;
  const std::uint64_t length = bigEndian(rest.substr(1, *size));
  rest.remove_prefix(1 + *size);
  return length;
}

/// An object of `count` pieces that take `width` bytes each.
std::optional<PlistObject> sized(Type type, std::uint64_t count, std::size_t width,
                                 std::string_view rest) {
  if (count > rest.size() / width) return std::nullopt;
  return PlistObject{type, static_cast<std::size_t>(count),
                     rest.substr(0, static_cast<std::size_t>(count) * width)};
}

std::optional<PlistObject> lengthy(Type type, unsigned low, std::size_t width,
                                   std::string_view rest) {
  const auto length = lengthOf(low, rest);
  return length ? sized(type, *length, width, rest) : std::nullopt;
}

std::optional<PlistObject> number(Type type, unsigned low, std::string_view rest) {
  const auto size = integerSize(low);
  return size ? sized(type, *size, 1, rest) : std::nullopt;
}

std::optional<PlistObject> readObject(std::string_view bytes, std::size_t refWidth) {
  if (bytes.empty()) return std::nullopt;
  const auto marker = static_cast<unsigned char>(bytes.front());
  const unsigned low = marker & 0x0FU;
  const std::string_view rest = bytes.substr(1);
  switch (marker >> 4) {
    case 0x0:
      if (low != 8 && low != 9) return PlistObject{};
      return PlistObject{Type::boolean, 1, bytes.substr(0, 1)};
    case 0x1: return number(Type::integer, low, rest);
    case 0x2: return number(Type::real, low, rest);
    case 0x5: return lengthy(Type::ascii, low, 1, rest);
    case 0x6: return lengthy(Type::utf16, low, 2, rest);
    case 0x8: return sized(Type::uid, low + 1, 1, rest);
    case 0xA: return lengthy(Type::array, low, refWidth, rest);
    case 0xD: return lengthy(Type::dictionary, low, 2 * refWidth, rest);
    default: return PlistObject{};
  }
}

std::optional<std::int64_t> truncated(double real) {
  constexpr double kLimit = 9223372036854775808.0;  // 2^63
  if (!(real >= -kLimit && real < kLimit)) return std::nullopt;
  return static_cast<std::int64_t>(real);
}

/// Eight bytes are signed, sixteen hold what does not fit into eight, shorter ones have no sign.
std::optional<std::int64_t> wholeNumber(std::string_view payload) {
  if (payload.size() <= kWidest) return static_cast<std::int64_t>(bigEndian(payload));
  const std::uint64_t high = bigEndian(payload.substr(0, kWidest));
  const auto low = static_cast<std::int64_t>(bigEndian(payload.substr(kWidest)));
  const std::uint64_t sign = low < 0 ? std::numeric_limits<std::uint64_t>::max() : 0;
  return high == sign ? std::optional(low) : std::nullopt;
}

std::optional<double> floatingPoint(std::string_view payload) {
  const std::uint64_t bits = bigEndian(payload);
  if (payload.size() == sizeof(double)) return std::bit_cast<double>(bits);
  if (payload.size() == sizeof(float))
    return std::bit_cast<float>(static_cast<std::uint32_t>(bits));
  return std::nullopt;
}

// Of ICU only what stands in its headers is used: the executable reads archives without its
// library.

std::string fromUtf16(std::string_view payload) {
  std::u16string units;
  for (std::size_t i = 0; i + 1 < payload.size(); i += 2) {
    units += static_cast<char16_t>(bigEndian(payload.substr(i, 2)));
  }
  std::string utf8;
  for (std::size_t i = 0; i < units.size();) {
    UChar32 point = 0;
    U16_NEXT(units, i, units.size(), point);
    appendUtf8(utf8, static_cast<char32_t>(point));
  }
  return utf8;
}

}  // namespace

std::optional<BinaryPlistReader> BinaryPlistReader::open(std::string_view bytes) {
  if (bytes.size() < kHeaderSize + kTrailerSize || !bytes.starts_with(kMagic)) return std::nullopt;
  const Trailer trailer = trailerOf(bytes);
  const std::size_t end = bytes.size() - kTrailerSize;
  if (!isWidth(trailer.offsetWidth) || !isWidth(trailer.refWidth)) return std::nullopt;
  if (trailer.table < kHeaderSize || trailer.table > end) return std::nullopt;
  if (trailer.objects > (end - trailer.table) / trailer.offsetWidth) return std::nullopt;
  BinaryPlistReader reader;
  reader.body_ = bytes.substr(0, trailer.table);
  reader.offsets_ = bytes.substr(trailer.table, trailer.objects * trailer.offsetWidth);
  reader.offsetWidth_ = trailer.offsetWidth;
  reader.refWidth_ = trailer.refWidth;
  reader.root_ = trailer.root;
  return reader;
}

std::optional<PlistObject> BinaryPlistReader::object(std::uint64_t number) const {
  if (number >= offsets_.size() / offsetWidth_) return std::nullopt;
  const std::uint64_t offset = bigEndian(offsets_.substr(number * offsetWidth_, offsetWidth_));
  if (offset < kHeaderSize || offset >= body_.size()) return std::nullopt;
  return readObject(body_.substr(offset), refWidth_);
}

std::optional<PlistObject> BinaryPlistReader::referred(std::string_view payload,
                                                       std::uint64_t index) const {
  return object(bigEndian(payload.substr(index * refWidth_, refWidth_)));
}

std::optional<PlistObject> BinaryPlistReader::element(const PlistObject& array,
                                                      std::uint64_t index) const {
  if (array.type != Type::array || index >= array.count) return std::nullopt;
  return referred(array.payload, index);
}

std::optional<PlistObject> BinaryPlistReader::value(const PlistObject& dictionary,
                                                    std::string_view key) const {
  if (dictionary.type != Type::dictionary) return std::nullopt;
  for (std::size_t i = 0; i < dictionary.count; ++i) {
    const auto name = referred(dictionary.payload, i);
    if (name && name->type == Type::ascii && name->payload == key) {
      return referred(dictionary.payload, dictionary.count + i);
    }
  }
  return std::nullopt;
}

std::optional<std::int64_t> plistInteger(const PlistObject& object) {
  switch (object.type) {
    case Type::boolean: return object.payload.front() & 1;
    case Type::integer: return wholeNumber(object.payload);
    case Type::real: {
      const auto real = floatingPoint(object.payload);
      return real ? truncated(*real) : std::nullopt;
    }
    default: return std::nullopt;
  }
}

std::optional<std::string> plistText(const PlistObject& object) {
  if (object.type == Type::utf16) return fromUtf16(object.payload);
  const auto isAscii = [](char letter) { return static_cast<unsigned char>(letter) < 0x80; };
  if (object.type != Type::ascii) return std::nullopt;
  if (!std::all_of(object.payload.begin(), object.payload.end(), isAscii)) return std::nullopt;
  return std::string(object.payload);
}

std::optional<std::uint64_t> plistUid(const PlistObject& object) {
  if (object.type != Type::uid || object.payload.size() > kWidest) return std::nullopt;
  return bigEndian(object.payload);
}

}  // namespace quillet
