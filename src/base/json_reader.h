// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <simdjson.h>

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "base/dates.h"

namespace quillet {

/// One parsed document; its elements are valid as long as it lives. White space and a byte order
/// mark around the document are allowed.
class JsonDocument {
 public:
  /// Throws DecodingError, a clause such as "it is not JSON", when `text` holds no document; a
  /// whole number beyond 64 bits anywhere is such a failure. Half a surrogate pair, as in a text
  /// that was cut inside an emoji, becomes U+FFFD. The text is copied only there and where its
  /// capacity leaves less than SIMDJSON_PADDING bytes behind it.
  explicit JsonDocument(const std::string& text);
  // The root points into the parser that stands beside it.
  JsonDocument(const JsonDocument&) = delete;
  JsonDocument& operator=(const JsonDocument&) = delete;

  [[nodiscard]] simdjson::dom::element root() const { return root_; }

 private:
  simdjson::dom::parser parser_;
  simdjson::dom::element root_;
};

using JsonObject = simdjson::dom::object;
using JsonArray = simdjson::dom::array;
using JsonElement = simdjson::dom::element;

/// The member, absent when the key is missing or null.
[[nodiscard]] std::optional<JsonElement> jsonMember(const JsonObject& object, std::string_view key);

/// Reads one element as the asked type; DecodingError, naming `key`, when it is of another type.
/// A number with a fraction of 0 is a whole number; a date is an ISO 8601 internet date-time.
void readElement(JsonElement element, std::string_view key, std::string& into);
void readElement(JsonElement element, std::string_view key, double& into);
void readElement(JsonElement element, std::string_view key, std::int64_t& into);
void readElement(JsonElement element, std::string_view key, bool& into);
void readElement(JsonElement element, std::string_view key, Instant& into);
void readElement(JsonElement element, std::string_view key, std::vector<std::string>& into);
void readElement(JsonElement element, std::string_view key, std::vector<std::int64_t>& into);

/// Null reads as absent.
template <typename T>
void readElement(JsonElement element, std::string_view key, std::optional<T>& into) {
  if (element.is_null()) {
    into.reset();
  } else {
    readElement(element, key, into.emplace());
  }
}

/// The member, absent when its key is missing or null; DecodingError when it is of another type.
template <typename T>
[[nodiscard]] std::optional<T> memberOf(const JsonObject& object, std::string_view key) {
  std::optional<T> value;
  if (const auto element = jsonMember(object, key)) readElement(*element, key, value.emplace());
  return value;
}

}  // namespace quillet
