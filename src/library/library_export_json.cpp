// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "library/library_export_json.h"

#include <fmt/format.h>

#include "base/errors.h"
#include "base/json_reader.h"
#include "base/json_writer.h"
#include "base/text.h"
#include "store/records/platform.h"
#include "system/settings_keys.h"
#include "system/whole_file.h"

namespace quillet {

namespace {

/// What both kinds of items begin with.
template <typename Item>
void writeApp(JsonWriter& writer, const Item& item) {
  writer.member("trackId", item.trackId);
  writer.member("country", item.country);
  writer.member("platform", item.platform);
  writer.member("name", item.name);
}

void write(JsonWriter& writer, const WatchedItem& item) {
  writeApp(writer, item);
  writer.member("priceWhenAdded", item.priceWhenAdded);
  writer.member("targetPrice", item.targetPrice);
  writer.member("alertOnAnyDrop", item.alertOnAnyDrop);
  writer.member("alertOnFree", item.alertOnFree);
  writer.member("alertOnNewVersion", item.alertOnNewVersion);
  writer.member("addedAt", item.addedAt);
}

void write(JsonWriter& writer, const EntryItem& item) {
  writeApp(writer, item);
  writer.member("note", item.note);
  writer.member("addedAt", item.addedAt);
}

void write(JsonWriter& writer, const CollectionItem& item);

template <typename Item>
void writeList(JsonWriter& writer, std::string_view key, const std::vector<Item>& items) {
  writer.list(key, items, [](JsonWriter& to, const Item& item) {
    to.beginObject();
    write(to, item);
    to.endObject();
  });
}

void write(JsonWriter& writer, const CollectionItem& item) {
  writer.member("name", item.name);
  writer.member("symbolName", item.symbolName);
  writeList(writer, "entries", item.entries);
}

/// The members of one object of the document, which know where they stand in it.
class Members {
 public:
  /// `place`: of the object, as in "watchlist[3]"; empty for the whole document.
  Members(JsonElement element, std::string place) : prefix_(std::move(place)) {
    if (element.get(object_) != simdjson::SUCCESS) {
      throw DecodingError(prefix_.empty() ? "it is not an exported library"
                                          : fmt::format("'{}' is not an object", prefix_));
    }
    if (!prefix_.empty()) prefix_ += '.';
  }

  [[nodiscard]] std::string placeOf(std::string_view key) const {
    return std::string(prefix_).append(key);
  }

  [[noreturn]] void refuse(std::string_view key, std::string_view complaint) const {
    throw DecodingError(fmt::format("'{}' {}", placeOf(key), complaint));
  }

  [[nodiscard]] JsonElement element(std::string_view key) const {
    const auto found = jsonMember(object_, key);
    if (!found) refuse(key, "is missing");
    return *found;
  }

  template <typename T>
  void read(std::string_view key, T& into) const {
    readElement(element(key), placeOf(key), into);
  }

  template <typename T>
  void read(std::string_view key, std::optional<T>& into) const {
    if (const auto found = jsonMember(object_, key)) readElement(*found, placeOf(key), into);
  }

 private:
  JsonObject object_;
  std::string prefix_;
};

void readTrackId(const Members& members, std::int64_t& into) {
  members.read("trackId", into);
  if (into <= 0) members.refuse("trackId", "is not above 0");
}

void readCountry(const Members& members, std::string& into) {
  members.read("country", into);
  if (!isTwoLetters(into) || lowerAscii(into) != into)
    members.refuse("country", "is not two lower-case letters");
}

void readPlatform(const Members& members, std::string& into) {
  members.read("platform", into);
  if (!valueOf(kPlatformWords, into)) members.refuse("platform", "is not mac, iphone or ipad");
}

/// What both kinds of items have.
template <typename Item>
void readApp(const Members& members, Item& item) {
  readTrackId(members, item.trackId);
  readCountry(members, item.country);
  readPlatform(members, item.platform);
  members.read("name", item.name);
  members.read("addedAt", item.addedAt);
}

void read(const Members& members, WatchedItem& item) {
  readApp(members, item);
  members.read("priceWhenAdded", item.priceWhenAdded);
  if (item.priceWhenAdded < 0) members.refuse("priceWhenAdded", "is below 0");
  members.read("targetPrice", item.targetPrice);
  if (item.targetPrice.value_or(0) < 0) members.refuse("targetPrice", "is below 0");
  members.read("alertOnAnyDrop", item.alertOnAnyDrop);
  members.read("alertOnFree", item.alertOnFree);
  members.read("alertOnNewVersion", item.alertOnNewVersion);
}

void read(const Members& members, EntryItem& item) {
  readApp(members, item);
  members.read("note", item.note);
}

template <typename Item>
void readList(const Members& members, std::string_view key, std::vector<Item>& items) {
  JsonArray list;
  if (members.element(key).get(list) != simdjson::SUCCESS) members.refuse(key, "is not a list");
  const std::string place = members.placeOf(key);
  for (const JsonElement element : list)
    read(Members(element, fmt::format("{}[{}]", place, items.size())), items.emplace_back());
}

void read(const Members& members, CollectionItem& item) {
  members.read("name", item.name);
  members.read("symbolName", item.symbolName);
  readList(members, "entries", item.entries);
}

void requireKnownVersion(const Members& members) {
  std::int64_t version = 0;
  members.read("version", version);
  if (version > kExportVersion) {
    throw DecodingError(
        fmt::format("it was written by a newer Quillet (format version {}, this one knows {})",
                    version, kExportVersion));
  }
  if (version < 1) members.refuse("version", "is below 1");
}

}  // namespace

std::string libraryExportJson(const LibraryExport& document) {
  JsonWriter writer(KeyOrder::asWritten);
  writer.beginObject();
  writer.member("version", kExportVersion);
  writer.member("exportedAt", document.exportedAt);
  writeList(writer, "watchlist", document.watchlist);
  writeList(writer, "collections", document.collections);
  writer.endObject();
  return writer.take();
}

LibraryExport readLibraryExport(std::string_view bytes) {
  if (bytes.size() > kLargestExport) throw DecodingError("it is too large");
  const JsonDocument json{std::string(bytes)};
  const Members members(json.root(), "");
  requireKnownVersion(members);
  LibraryExport document;
  members.read("exportedAt", document.exportedAt);
  readList(members, "watchlist", document.watchlist);
  readList(members, "collections", document.collections);
  return document;
}

LibraryExport readLibraryFile(const std::filesystem::path& file) {
  try {
    return readLibraryExport(readWholeFile(file, kLargestExport));
  } catch (const DecodingError& error) {
    throw FileError(fmt::format("'{}' could not be imported: {}.", file.string(), error.what()));
  }
}

}  // namespace quillet
