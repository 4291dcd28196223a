// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "base/dates.h"
#include "library/schema/table.h"

namespace quillet {

/// A named, user-made group of apps.
struct AppCollection {
  RowId id = 0;
  std::string name;
  std::string symbolName;
  Instant createdAt{};

  friend bool operator==(const AppCollection&, const AppCollection&) = default;
};

template <>
inline constexpr auto kTable<AppCollection> =
    Table{"AppCollection", 1, KeyUse::unique, std::array<Index, 3>{},
          std::tuple{attribute("name", &AppCollection::name),
                     attribute("symbolName", &AppCollection::symbolName),
                     attribute("createdAt", &AppCollection::createdAt)}};

/// One app in one collection.
struct CollectionEntry {
  RowId id = 0;
  std::int64_t trackId = 0;
  std::string country;
  std::string platformRaw;
  std::string name;
  std::optional<std::string> sellerName;
  std::optional<std::string> artworkUrl;
  std::string note;  ///< empty when there is none
  Instant addedAt{};
  std::optional<RowId> collection;  ///< the collection that it belongs to

  friend bool operator==(const CollectionEntry&, const CollectionEntry&) = default;
};

template <>
inline constexpr auto kTable<CollectionEntry> =
    Table{"CollectionEntry", 1, KeyUse::unique,
          std::array<Index, 3>{Index{Index::Kind::unique, {"collection", "trackId", "country"}}},
          std::tuple{attribute("trackId", &CollectionEntry::trackId),
                     attribute("country", &CollectionEntry::country),
                     attribute("platformRaw", &CollectionEntry::platformRaw),
                     attribute("name", &CollectionEntry::name),
                     attribute("sellerName", &CollectionEntry::sellerName),
                     attribute("artworkUrl", &CollectionEntry::artworkUrl),
                     attribute("note", &CollectionEntry::note),
                     attribute("addedAt", &CollectionEntry::addedAt),
                     toOne("collection", &CollectionEntry::collection, "AppCollection")}};

}  // namespace quillet
