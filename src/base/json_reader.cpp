// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "base/json_reader.h"

#include <fmt/format.h>

#include <algorithm>
#include <charconv>
#include <cmath>

#include "base/errors.h"

namespace quillet {

namespace {

constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

[[noreturn]] void failOn(std::string_view key, std::string_view expected) {
  throw DecodingError(fmt::format("'{}' is not {}", key, expected));
}

const char* reasonFor(simdjson::error_code error) {
  switch (error) {
    case simdjson::EMPTY: return "it is empty";
    case simdjson::UTF8_ERROR: return "it is not valid UTF-8";
    case simdjson::DEPTH_ERROR: return "it is nested too deeply";
    case simdjson::NUMBER_ERROR: return "it holds a number that cannot be read";
    case simdjson::MEMALLOC:
    case simdjson::CAPACITY: return "it is too large";
    default: return "it is not JSON";
  }
}

/// The UTF-16 code unit that is escaped at `place`; 0 where none is.
std::uint16_t escapedUnit(std::string_view text, std::size_t place) {
  std::uint16_t unit = 0;
  if (text.substr(std::min(place, text.size()), 2) != "\\u" || text.size() - place < 6) return 0;
  std::from_chars(text.data() + place + 2, text.data() + place + 6, unit, 16);
  return unit;
}

constexpr bool isHighSurrogate(std::uint16_t unit) { return (unit & 0xFC00) == 0xD800; }
constexpr bool isLowSurrogate(std::uint16_t unit) { return (unit & 0xFC00) == 0xDC00; }

std::string withoutHalfPairs(std::string_view text) {
  constexpr std::size_t kEscape = 6;
  std::string whole(text);
  std::size_t place = 0;
  while ((place = whole.find('\\', place)) != std::string::npos) {
    const std::uint16_t unit = escapedUnit(whole, place);
    if (isHighSurrogate(unit) && isLowSurrogate(escapedUnit(whole, place + kEscape))) {
      place += kEscape;
    } else if (isHighSurrogate(unit) || isLowSurrogate(unit)) {
      whole.replace(place, kEscape, "\\ufffd");
    }
    place += 2;  // over the escaped character, which may be another backslash
  }
  return whole;
}

template <typename T>
void readList(JsonElement element, std::string_view key, std::vector<T>& into) {
  JsonArray array;
  if (element.get(array) != simdjson::SUCCESS) failOn(key, "a list");
  into.clear();
  for (const JsonElement item : array) readElement(item, key, into.emplace_back());
}

}  // namespace

JsonDocument::JsonDocument(const std::string& text) {
  const auto parse = [this](const std::string& json) {
    const std::size_t mark = json.starts_with(kByteOrderMark) ? kByteOrderMark.size() : 0;
    const bool copies = json.capacity() - json.size() < simdjson::SIMDJSON_PADDING;
    return parser_.parse(json.data() + mark, json.size() - mark, copies).get(root_);
  };
  auto error = parse(text);
  if (error == simdjson::STRING_ERROR) error = parse(withoutHalfPairs(text));
  if (error != simdjson::SUCCESS) throw DecodingError(reasonFor(error));
}

std::optional<JsonElement> jsonMember(const JsonObject& object, std::string_view key) {
  JsonElement element;
  if (object[key].get(element) != simdjson::SUCCESS || element.is_null()) return {};
  return element;
}

void readElement(JsonElement element, std::string_view key, std::string& into) {
  std::string_view text;
  if (element.get(text) != simdjson::SUCCESS) failOn(key, "a text");
  into = text;
}

void readElement(JsonElement element, std::string_view key, double& into) {
  if (element.get(into) != simdjson::SUCCESS) failOn(key, "a number");
}

void readElement(JsonElement element, std::string_view key, std::int64_t& into) {
  if (element.get(into) == simdjson::SUCCESS) return;
  double number = 0;
  // 2^53: up to here a floating-point number names one integer.
  constexpr double kExactLimit = 9007199254740992.0;
  if (element.get(number) != simdjson::SUCCESS || std::trunc(number) != number ||
      std::abs(number) > kExactLimit) {
    failOn(key, "a whole number");
  }
  into = static_cast<std::int64_t>(number);
}

void readElement(JsonElement element, std::string_view key, bool& into) {
  if (element.get(into) != simdjson::SUCCESS) failOn(key, "true or false");
}

void readElement(JsonElement element, std::string_view key, Instant& into) {
  std::string_view text;
  if (element.get(text) != simdjson::SUCCESS) failOn(key, "a text");
  const auto instant = parseInternetDate(text);
  if (!instant) failOn(key, "an ISO 8601 date-time");
  into = *instant;
}

void readElement(JsonElement element, std::string_view key, std::vector<std::string>& into) {
  readList(element, key, into);
}

void readElement(JsonElement element, std::string_view key, std::vector<std::int64_t>& into) {
  readList(element, key, into);
}

}  // namespace quillet
