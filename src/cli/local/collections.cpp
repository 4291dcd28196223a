// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "cli/local/collections.h"

#include <unordered_map>

#include "cli/cli_error.h"
#include "cli/local/local_statement.h"

namespace quillet {

namespace {

constexpr const char* kCollectionsQuery =
    "SELECT Z_PK, ZNAME, ZSYMBOLNAME, ZCREATEDAT FROM ZAPPCOLLECTION\n"
    "ORDER BY ZNAME COLLATE NOCASE";
constexpr const char* kEntriesQuery =
    "SELECT ZCOLLECTION, ZTRACKID, ZNAME, ZSELLERNAME, ZCOUNTRY, ZPLATFORMRAW, ZNOTE, ZADDEDAT\n"
    "FROM ZCOLLECTIONENTRY ORDER BY ZADDEDAT DESC, Z_PK DESC";

/// Where the collection of each primary key stands.
using RowPlaces = std::unordered_map<std::int64_t, std::size_t>;

RowPlaces readNames(const CLILocalStore& store, CLICollections& collections) {
  RowPlaces places;
  LocalStatement rows(store, kCollectionsQuery);
  while (rows.next()) {
    const auto key = rows.integer(0);
    auto name = rows.text(1);
    if (!key || !name) continue;
    places.emplace(*key, collections.items.size());
    collections.items.push_back({std::move(*name), rows.text(2), rows.date(3), {}});
  }
  collections.total = collections.items.size();
  return places;
}

void readEntries(const CLILocalStore& store, const RowPlaces& places, CLICollections& collections) {
  LocalStatement rows(store, kEntriesQuery);
  while (rows.next()) {
    const auto collection = rows.integer(0);
    const auto trackId = rows.integer(1);
    auto name = rows.text(2);
    if (!collection || !trackId || !name) continue;
    const auto place = places.find(*collection);
    if (place == places.end()) continue;
    collections.items[place->second].apps.push_back({*trackId, std::move(*name), rows.text(3),
                                                     rows.text(4), rows.text(5), rows.text(6),
                                                     rows.date(7)});
  }
}

void writeEntry(JsonWriter& writer, const CLICollectionEntry& entry) {
  writer.beginObject();
  writer.member("addedAt", entry.addedAt);
  writer.member("country", entry.country);
  writer.member("name", entry.name);
  writer.member("note", entry.note);
  writer.member("platform", entry.platform);
  writer.member("seller", entry.seller);
  writer.member("trackId", entry.trackId);
  writer.endObject();
}

void writeSize(JsonWriter& writer, const CLICollection& collection) {
  writer.member("count", collection.apps.size());
  writer.member("createdAt", collection.createdAt);
  writer.member("name", collection.name);
  writer.member("symbol", collection.symbol);
}

void writeCollection(JsonWriter& writer, const CLICollection& collection) {
  writer.beginObject();
  writeSize(writer, collection);
  writer.endObject();
}

}  // namespace

CLICollections readCollections(const LocalCall& call) {
  if (call.options.operands.size() > 1) {
    throw CLIError(CLIError::Code::validation, "collections takes one collection name at most.",
                   {"quillet collections \"Writing\" --json"});
  }
  const CLILocalStore store = CLILocalStore::open(call.environment, call.queryLog);
  CLICollections collections;
  const RowPlaces places = readNames(store, collections);
  readEntries(store, places, collections);
  return collections;
}

std::string renderCollectionsJson(const CLICollections& collections) {
  return renderListJson(collections, writeCollection);
}

std::string renderCollectionJson(const CLICollection& collection) {
  return jsonObject([&](JsonWriter& writer) {
    writer.list("apps", collection.apps, writeEntry);
    writeSize(writer, collection);
  });
}

}  // namespace quillet
