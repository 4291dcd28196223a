// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <concepts>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "base/dates.h"

namespace quillet {

enum class JsonLayout {
  indented,  ///< for people: lines, with two blanks a level
  compact,   ///< for files that only programs read
};

/// In which order the keys of an object stand.
enum class KeyOrder { ascending, asWritten };

/// Writes one JSON document, forward slashes as they are. Unless told otherwise, keys must arrive
/// in ascending order within their object (a debug build asserts it), so that the output is sorted
/// without a document in between. Text that is no valid UTF-8 is repaired with U+FFFD; a number
/// that JSON cannot hold (NaN, infinity) is written as null.
class JsonWriter {
 public:
  explicit JsonWriter(JsonLayout layout = JsonLayout::indented) : layout_(layout) {}
  explicit JsonWriter(KeyOrder order) : order_(order) {}

  void beginObject();
  void endObject();
  void beginArray();
  void endArray();

  void key(std::string_view name);

  void value(std::string_view text);
  void value(const char* text) { value(std::string_view(text)); }
  void value(bool flag);
  void value(double number);
  void value(Instant instant);
  template <std::integral Integer>
  void value(Integer number) {
    if constexpr (std::unsigned_integral<Integer>) {
      writeInteger(std::uint64_t{number});
    } else {
      writeInteger(std::int64_t{number});
    }
  }
  template <typename T>
  void value(const std::vector<T>& items) {
    beginArray();
    for (const T& item : items) value(item);
    endArray();
  }

  /// A member, left out when the value is absent.
  template <typename T>
  void member(std::string_view name, const T& content) {
    if constexpr (requires { content.has_value(); }) {
      if (!content) return;
      key(name);
      value(*content);
    } else {
      key(name);
      value(content);
    }
  }

  /// A member, left out when the text is empty.
  void memberUnlessEmpty(std::string_view name, std::string_view text) {
    if (!text.empty()) member(name, text);
  }

  /// A member that is a list, whose items `write` writes one by one.
  template <typename Items, typename Write>
  void list(std::string_view name, const Items& items, Write write) {
    key(name);
    beginArray();
    for (const auto& item : items) write(*this, item);
    endArray();
  }

  /// The document; call once, when every object and array is closed.
  [[nodiscard]] std::string take();

 private:
  struct Level {
    bool empty = true;
    std::string lastKey;  // kept in debug builds only
  };

  void writeInteger(std::int64_t number);
  void writeInteger(std::uint64_t number);
  void open(char bracket);
  void close(char bracket);
  void beforeValue();
  void newLine();

  JsonLayout layout_ = JsonLayout::indented;
  KeyOrder order_ = KeyOrder::ascending;
  std::string out_;
  std::vector<Level> levels_;
  bool afterKey_ = false;
};

/// A document that is one object, whose members `writeMembers` writes.
template <typename Write>
[[nodiscard]] std::string jsonObject(Write writeMembers) {
  JsonWriter writer;
  writer.beginObject();
  writeMembers(writer);
  writer.endObject();
  return writer.take();
}

}  // namespace quillet
