// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "store/records/seed_manifest.h"

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

}  // namespace quillet
