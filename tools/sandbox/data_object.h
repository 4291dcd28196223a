// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "base/errors.h"
#include "base/json_reader.h"
#include "sandbox/storefronts.h"

namespace quillet::sandbox {

using quillet::readElement;

// As in base/json_reader.h; DecodingError too for a number that an int cannot hold.
void readElement(JsonElement element, std::string_view key, int& into);
void readElement(JsonElement element, std::string_view key, std::vector<int>& into);
void readElement(JsonElement element, std::string_view key, StorefrontSet& into);
template <typename T>
void readElement(JsonElement element, std::string_view key, std::vector<T>& into) {
  if (!element.is_array()) throw DecodingError("\"" + std::string(key) + "\" is no list");
  for (const JsonElement item : element.get_array()) readElement(item, key, into.emplace_back());
}

/// One object of a data file, from which members are taken by name. It must hold those that are
/// needed and none that nobody knows. All operations throw DecodingError, which names the object.
class DataObject {
 public:
  /// `name`: what the object is called in errors.
  DataObject(JsonElement element, std::string name);

  /// Leaves `into` as it is when there is no such member.
  template <typename T>
  void take(std::string_view key, T& into) {
    if (const auto element = member(key)) read(*element, key, into);
  }

  template <typename T>
  [[nodiscard]] T needed(std::string_view key) {
    T value{};
    read(element(key), key, value);
    return value;
  }

  /// A needed list of texts to draw from, so with one at least.
  [[nodiscard]] std::vector<std::string> texts(std::string_view key);

  [[nodiscard]] std::optional<JsonElement> member(std::string_view key);
  /// A needed member as it stands.
  [[nodiscard]] JsonElement element(std::string_view key);
  /// The items of a needed list.
  [[nodiscard]] JsonArray list(std::string_view key);

  /// To be called when all known members were taken.
  void requireNoOthers() const;

  [[noreturn]] void fail(std::string_view reason) const;

 private:
  template <typename T>
  void read(JsonElement element, std::string_view key, T& into) {
    try {
      readElement(element, key, into);
    } catch (const DecodingError& error) {
      fail(error.what());
    }
  }

  JsonObject object_;
  std::string name_;
  std::set<std::string, std::less<>> known_;
};

}  // namespace quillet::sandbox
