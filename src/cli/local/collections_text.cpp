// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "cli/local/collections_text.h"

#include <unicode/unistr.h>

#include <algorithm>

#include "base/columns.h"
#include "base/text.h"
#include "cli/cli_error.h"
#include "cli/local/counted.h"
#include "cli/local/list_text.h"

namespace quillet {

namespace {

constexpr std::size_t kCollectionWidth = 35;
constexpr std::size_t kIdWidth = 12;
constexpr std::size_t kNameWidth = 31;
constexpr std::size_t kStoreWidth = 14;

icu::UnicodeString caseless(const std::string& text) {
  return icu::UnicodeString::fromUTF8(text).foldCase();
}

std::string lineOf(const CLICollectionEntry& entry, const TextStyle& style) {
  return column(std::to_string(entry.trackId), kIdWidth) +
         nameColumn(entry.name, kNameWidth, style) +
         column(storeText(entry.country, entry.platform), kStoreWidth) + shown(entry.note);
}

}  // namespace

const CLICollection& pickCollection(const CLICollections& collections, const std::string& name) {
  const icu::UnicodeString wanted = caseless(name);
  const auto found = std::find_if(
      collections.items.begin(), collections.items.end(),
      [&](const auto& collection) { return caseless(collection.name).indexOf(wanted) >= 0; });
  if (found == collections.items.end()) {
    throw CLIError(CLIError::Code::notFound, "No collection matching '" + name + "'",
                   {"quillet collections --json lists them all"});
  }
  return *found;
}

std::string renderCollectionsText(const CLICollections& collections, const TextStyle& style) {
  if (collections.items.empty()) return "No collections yet.";
  std::vector<std::string> lines;
  for (const CLICollection& collection : collections.items) {
    lines.push_back(nameColumn(collection.name, kCollectionWidth, style) +
                    counted(collection.apps.size(), "app"));
  }
  return join(lines, "\n");
}

std::string renderCollectionText(const CLICollection& collection, const TextStyle& style) {
  std::string text = printable(collection.name) + ", " + counted(collection.apps.size(), "app");
  if (!collection.apps.empty()) text += '\n';
  for (const CLICollectionEntry& entry : collection.apps) text += '\n' + lineOf(entry, style);
  return text;
}

}  // namespace quillet
