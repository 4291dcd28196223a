// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "sandbox/service_answers.h"

#include "base/enum_table.h"
#include "base/numbers.h"
#include "sandbox/json_parts.h"

namespace quillet::sandbox {

namespace {

constexpr std::size_t kMostResults = 200;
constexpr std::size_t kUsualResults = 50;

constexpr EnumTable<Shelf, 3> kEntities{{
    {Shelf::mac, "macSoftware"},
    {Shelf::iphone, "software"},
    {Shelf::ipad, "iPadSoftware"},
}};
static_assert(isComplete(kEntities, Shelf::ipad));

// The service pads its answers with line feeds on both sides.
constexpr std::string_view kPadding = "\n\n\n";

}  // namespace

std::optional<Storefront> storefrontOf(const Request& request) {
  const std::string country = request.item("country");
  return country.empty() ? Storefront::us : storefrontOf(std::string_view(country));
}

std::optional<Shelf> shelfOf(std::string_view entity) { return valueOf(kEntities, entity); }

std::size_t limitOf(const Request& request) {
  const auto limit = parseWhole(request.item("limit"));
  if (!limit || *limit < 1) return kUsualResults;
  return std::min(static_cast<std::size_t>(*limit), kMostResults);
}

ResultList::ResultList(std::size_t count) {
  json_.beginObject();
  json_.member("resultCount", count);
  json_.key("results");
  json_.beginArray();
}

Answer ResultList::take() {
  json_.endArray();
  json_.endObject();
  std::string body = json_.take();
  body.insert(0, kPadding);
  body += kPadding;
  return {.body = std::move(body)};
}

Answer invalidValue(std::string_view key) {
  JsonWriter json;
  writeObject(json, [&] {
    json.member("errorMessage", fmt::format("Invalid value(s) for key(s): [{}]", key));
    writeObject(json, "queryParameters", [&] {
      json.member("country", "A storefront's two-letter country code");
      json.member("limit", "How many results to return");
      json.member("output", "json");
      json.member("term", "The text to search for");
    });
  });
  return {.status = 400, .body = json.take() + '\n'};
}

}  // namespace quillet::sandbox
