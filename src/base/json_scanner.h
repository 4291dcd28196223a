// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <optional>
#include <string_view>

namespace quillet {

/// Steps through the JSON of a large text from its begin to its end, value by value, without
/// copying anything and without an index of the text, which would be larger than the text itself.
/// What it hands out are parts of the text, which must outlive it.
///
/// Each operation expects its value next and throws DecodingError where the text is no JSON. What
/// is passed over is not looked at closely: strings end where they should, brackets are counted.
/// The text's encoding is not checked.
class JsonScanner {
 public:
  explicit JsonScanner(std::string_view text) : at_(text.data()), end_(text.data() + text.size()) {}

  /// The first character of what comes next; 0 at the end of the text.
  [[nodiscard]] char next() {
    skipSpace();
    return at_ == end_ ? '\0' : *at_;
  }

  /// Whether the character comes next; if so, it is passed.
  [[nodiscard]] bool take(char expected) {
    if (next() != expected) return false;
    ++at_;
    return true;
  }
  void expect(char expected) {
    if (!take(expected)) refuse();
  }

  /// What stands between the quotes of a string, escapes included.
  [[nodiscard]] std::string_view takeString();

  /// A number; absent for every other value, and for numbers that no double can hold, which are
  /// passed over.
  [[nodiscard]] std::optional<double> takeNumber();

  void skipValue();

  /// Any value, as it stands in the text.
  [[nodiscard]] std::string_view takeValue();

  /// Where the value of an object's member stands, by the raw key: the first of that name. Absent
  /// where there is none. The scanner itself does not move.
  [[nodiscard]] std::optional<JsonScanner> findMember(std::string_view key) const;

  /// Calls `onKey` with the raw key of each member of an object, to take or skip its value.
  template <typename OnKey>
  void eachMember(OnKey onKey) {
    expect('{');
    if (take('}')) return;
    do {
      const std::string_view key = takeString();
      expect(':');
      onKey(key);
    } while (take(','));
    expect('}');
  }

  /// Calls `onItem` for each item of a list, to take or skip it.
  template <typename OnItem>
  void eachItem(OnItem onItem) {
    expect('[');
    if (take(']')) return;
    do {
      onItem();
    } while (take(','));
    expect(']');
  }

 private:
  void skipSpace() {
    while (at_ != end_ && (*at_ == ' ' || *at_ == '\n' || *at_ == '\r' || *at_ == '\t')) ++at_;
  }
  [[noreturn]] static void refuse();
  std::string_view takeScalar();
  void skipNested();

  const char* at_;
  const char* end_;
};

}  // namespace quillet
