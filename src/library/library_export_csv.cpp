// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "library/library_export_csv.h"

#include <fmt/format.h>

#include "base/numbers.h"
#include "base/text.h"

namespace quillet {

namespace {

std::string field(const std::string& text) {
  if (text.find_first_of(",\"\n\r") == std::string::npos) return text;
  std::string quoted = "\"";
  for (const char c : text) quoted.append(c == '"' ? 2 : 1, c);
  return quoted += '"';
}

std::string lineOf(const WatchedItem& item) {
  return join({"watchlist", "", field(item.name), std::to_string(item.trackId), field(item.country),
               field(item.platform), decimalText(item.priceWhenAdded),
               item.targetPrice ? decimalText(*item.targetPrice) : "", "",
               formatInternetDate(item.addedAt)},
              ",");
}

std::string lineOf(const EntryItem& item, const std::string& collection) {
  return join({"collection", field(collection), field(item.name), std::to_string(item.trackId),
               field(item.country), field(item.platform), "", "", field(item.note),
               formatInternetDate(item.addedAt)},
              ",");
}

}  // namespace

std::string libraryExportCsv(const LibraryExport& document) {
  std::string text =
      "kind,collection,name,trackId,country,platform,priceWhenAdded,targetPrice,note,addedAt";
  for (const WatchedItem& item : document.watchlist) text += '\n' + lineOf(item);
  for (const CollectionItem& collection : document.collections) {
    for (const EntryItem& item : collection.entries) text += '\n' + lineOf(item, collection.name);
  }
  return text;
}

}  // namespace quillet
