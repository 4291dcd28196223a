// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "store/records/seed_manifest.h"

#include <algorithm>
#include <chrono>

#include "base/errors.h"
#include "base/json_reader.h"
#include "base/text.h"

namespace quillet {

namespace {

SeedManifest::Entry entryOf(const JsonObject& object) {
  return {lowerAscii(memberOf<std::string>(object, "country").value_or("")),
          memberOf<std::string>(object, "file").value_or(""),
          memberOf<std::int64_t>(object, "apps").value_or(0),
          parseInternetDate(memberOf<std::string>(object, "lookedAt").value_or(""))};
}

}  // namespace

SeedManifest decodeSeedManifest(const std::string& body) {
  const JsonDocument document(body);
  JsonObject root;
  if (document.root().get(root) != simdjson::SUCCESS) throw DecodingError("it is no object");
  const auto schema = memberOf<std::int64_t>(root, "schema");
  if (!schema) throw DecodingError("'schema' is missing");
  SeedManifest manifest{*schema, memberOf<std::string>(root, "generatedAt").value_or(""), {}};
  JsonArray storefronts;
  if (root["storefronts"].get(storefronts) != simdjson::SUCCESS) return manifest;
  for (const JsonElement element : storefronts) {
    JsonObject object;
    if (element.get(object) != simdjson::SUCCESS) continue;
    SeedManifest::Entry entry = entryOf(object);
    if (!entry.country.empty()) manifest.storefronts.push_back(std::move(entry));
  }
  return manifest;
}

std::optional<Instant> lastLookIn(const SeedManifest& manifest, const std::string& country) {
  const auto entry =
      std::ranges::find(manifest.storefronts, country, &SeedManifest::Entry::country);
  return entry == manifest.storefronts.end() ? std::nullopt : entry->lookedAt;
}

/// Prices are looked at daily; a day that was missed is nothing to speak of.
bool isOldLook(std::optional<Instant> looked, Instant now) {
  constexpr std::chrono::days kOld{3};
  return looked && now - *looked > kOld;
}

}  // namespace quillet
