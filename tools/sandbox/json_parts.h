// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <string_view>

#include "base/json_writer.h"

namespace quillet::sandbox {

/// An object whose members `write` writes.
template <typename Write>
void writeObject(JsonWriter& json, Write write) {
  json.beginObject();
  write();
  json.endObject();
}

/// A member that is an object.
template <typename Write>
void writeObject(JsonWriter& json, std::string_view name, Write write) {
  json.key(name);
  writeObject(json, write);
}

/// A list whose items `write` writes.
template <typename Write>
void writeList(JsonWriter& json, Write write) {
  json.beginArray();
  write();
  json.endArray();
}

/// A member that is a list.
template <typename Write>
void writeList(JsonWriter& json, std::string_view name, Write write) {
  json.key(name);
  writeList(json, write);
}

/// A member that is an object whose "data" is a list of one item for each of `items`.
template <typename Items, typename Write>
void writeDataOf(JsonWriter& json, std::string_view name, const Items& items, Write write) {
  writeObject(json, name, [&] {
    writeList(json, "data", [&] {
      for (const auto& item : items) write(item);
    });
  });
}

}  // namespace quillet::sandbox
