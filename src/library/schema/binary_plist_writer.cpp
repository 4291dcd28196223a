// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "library/schema/binary_plist_writer.h"

#include <unicode/utf16.h>
#include <unicode/utf8.h>

#include <algorithm>
#include <array>
#include <bit>

#include "base/text.h"

namespace quillet {
namespace {

// The high half of a marker says what an object is, the low half how long.
constexpr unsigned char kInteger = 0x10;
constexpr unsigned char kAscii = 0x50;
constexpr unsigned char kUtf16 = 0x60;
constexpr unsigned char kUid = 0x80;
constexpr unsigned char kArray = 0xA0;
constexpr unsigned char kDictionary = 0xD0;

/// Lengths from here on follow their marker as an integer.
constexpr std::size_t kLong = 15;

void appendBytes(std::string& bytes, std::uint64_t value, int width) {
  for (int shift = (width - 1) * 8; shift >= 0; shift -= 8) {
    bytes += static_cast<char>(static_cast<unsigned char>(value >> shift));
  }
}

/// The least of 1, 2, 4 and 8 bytes that hold `value`.
int widthOf(std::uint64_t value) {
  if (value <= 0xFF) return 1;
  if (value <= 0xFFFF) return 2;
  return value <= 0xFFFFFFFF ? 4 : 8;
}

void appendInteger(std::string& bytes, std::uint64_t value) {
  const int width = widthOf(value);
  appendBytes(bytes,
              kInteger + static_cast<unsigned>(std::countr_zero(static_cast<unsigned>(width))), 1);
  appendBytes(bytes, value, width);
}

void appendMarker(std::string& bytes, unsigned char type, std::size_t length) {
  bytes += static_cast<char>(type + std::min(length, kLong));
  if (length >= kLong) appendInteger(bytes, length);
}

bool isAscii(std::string_view text) {
  return std::all_of(text.begin(), text.end(),
                     [](char letter) { return static_cast<unsigned char>(letter) < 0x80; });
}

// Of ICU only what stands in its headers is used: the executable reads archives without its
// library.

constexpr UChar32 kReplacement = 0xFFFD;

/// Of the well-formed sequence at the start.
UChar32 codePointOf(std::string_view utf8) {
  std::size_t next = 0;
  UChar32 point = 0;
  U8_NEXT_UNSAFE(utf8, next, point);
  return point;
}

void appendPoint(std::u16string& text, UChar32 point) {
  std::array<char16_t, U16_MAX_LENGTH> units{};
  std::size_t size = 0;
  U16_APPEND_UNSAFE(units, size, point);
  text.append(units.data(), size);
}

void appendUtf16(std::string& bytes, std::string_view utf8) {
  std::u16string units;
  while (!utf8.empty()) {
    const std::size_t length = utf8SequenceLength(utf8);
    appendPoint(units, length == 0 ? kReplacement : codePointOf(utf8));
    utf8.remove_prefix(std::max<std::size_t>(length, 1));
  }
  appendMarker(bytes, kUtf16, units.size());
  for (const char16_t unit : units) appendBytes(bytes, unit, 2);
}

}  // namespace

BinaryPlistWriter::Ref BinaryPlistWriter::endObject() {
  objects_.push_back({heads_.size(), references_.size()});
  return objects_.size() - 1;
}

// Only integers of eight bytes have a sign, so a negative one takes all eight.
BinaryPlistWriter::Ref BinaryPlistWriter::addInteger(std::int64_t value) {
  appendInteger(heads_, static_cast<std::uint64_t>(value));
  return endObject();
}

BinaryPlistWriter::Ref BinaryPlistWriter::addText(std::string_view utf8) {
  if (isAscii(utf8)) {
    appendMarker(heads_, kAscii, utf8.size());
    heads_ += utf8;
  } else {
    appendUtf16(heads_, utf8);
  }
  return endObject();
}

BinaryPlistWriter::Ref BinaryPlistWriter::addUid(std::uint32_t value) {
  const int width = widthOf(value);
  heads_ += static_cast<char>(kUid + width - 1);
  appendBytes(heads_, value, width);
  return endObject();
}

BinaryPlistWriter::Ref BinaryPlistWriter::addArray(std::span<const Ref> elements) {
  appendMarker(heads_, kArray, elements.size());
  references_.insert(references_.end(), elements.begin(), elements.end());
  return endObject();
}

BinaryPlistWriter::Ref BinaryPlistWriter::addDictionary(
    std::initializer_list<std::pair<Ref, Ref>> entries) {
  appendMarker(heads_, kDictionary, entries.size());
  for (const auto& [key, value] : entries) references_.push_back(key);
  for (const auto& [key, value] : entries) references_.push_back(value);
  return endObject();
}

std::string BinaryPlistWriter::finish(Ref root) const {
  const int refWidth = widthOf(objects_.size());
  std::string bytes = "bplist00";
  bytes.reserve(bytes.size() + heads_.size() +
                (references_.size() + objects_.size()) * sizeof(Ref));
  std::vector<std::size_t> offsets;
  offsets.reserve(objects_.size());
  Object before{};
  for (const Object& object : objects_) {
    offsets.push_back(bytes.size());
    bytes.append(heads_, before.headEnd, object.headEnd - before.headEnd);
    for (std::size_t i = before.referencesEnd; i < object.referencesEnd; ++i)
      appendBytes(bytes, references_[i], refWidth);
    before = object;
  }
  const std::size_t table = bytes.size();
  const int offsetWidth = widthOf(table);
  for (const std::size_t offset : offsets) appendBytes(bytes, offset, offsetWidth);
  bytes.append(6, '\0');
  appendBytes(bytes, static_cast<std::uint64_t>(offsetWidth), 1);
  appendBytes(bytes, static_cast<std::uint64_t>(refWidth), 1);
  for (const std::size_t field : {objects_.size(), root, table}) appendBytes(bytes, field, 8);
  return bytes;
}

}  // namespace quillet
