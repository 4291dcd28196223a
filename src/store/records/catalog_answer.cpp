// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "store/records/catalog_answer.h"

#include <algorithm>
#include <span>

#include "base/errors.h"
#include "base/numbers.h"
#include "base/text.h"

namespace quillet {

namespace {

/// Here alone a value of the wrong type becomes one that is not there.
template <typename T>
std::optional<T> readOrNothing(JsonElement element) {
  try {
    T value{};
    readElement(element, "", value);
    return value;
  } catch (const DecodingError&) {
    return {};
  }
}

std::string withoutFraction(std::string_view dateTime) {
  constexpr std::size_t kFractionStart = std::string_view("2024-03-01T08:00:00").size();
  std::string result(dateTime);
  if (result.size() > kFractionStart && result[kFractionStart] == '.') {
    const auto zone = result.find_first_not_of("0123456789", kFractionStart + 1);
    result.erase(kFractionStart, std::min(zone, result.size()) - kFractionStart);
  }
  return result;
}

std::optional<Instant> parseDate(std::string_view text) {
  constexpr std::size_t kDayLength = std::string_view("2024-03-01").size();
  if (text.size() == kDayLength) return parseInternetDate(std::string(text) + "T00:00:00Z");
  return parseInternetDate(withoutFraction(text));
}

/// The keys of `platformAttributes` that speak of a platform, the closest first.
std::span<const std::string_view> blockKeys(Platform platform) {
  static constexpr std::string_view kMac[] = {"mac", "osx"};
  static constexpr std::string_view kIphone[] = {"iphone", "ipad", "ios"};
  static constexpr std::string_view kIpad[] = {"ipad", "iphone", "ios"};
  switch (platform) {
    case Platform::mac: return kMac;
    case Platform::iphone: return kIphone;
    case Platform::ipad: break;
  }
  return kIpad;
}

std::vector<CatalogBlock> resourcesOf(JsonElement root) {
  JsonObject object;
  if (root.get(object) != simdjson::SUCCESS) throw DecodingError("it is not an object");
  const auto data = jsonMember(object, "data");
  if (!data || !(data->is_array() || data->is_object())) throw DecodingError("it holds no data");
  return CatalogBlock(object).list("data");
}

}  // namespace

template <>
std::optional<std::string> readAs(JsonElement element) {
  // Asked before, since numbers come here too and a throw costs as much as decoding an app.
  if (!element.is_string()) return {};
  auto text = readOrNothing<std::string>(element);
  if (text && text->empty()) text.reset();
  return text;
}

template <>
std::optional<double> readAs(JsonElement element) {
  if (const auto text = readAs<std::string>(element)) return parseDecimal(*text);
  return readOrNothing<double>(element);
}

template <>
std::optional<std::int64_t> readAs(JsonElement element) {
  if (const auto text = readAs<std::string>(element)) return parseWhole(*text);
  return readOrNothing<std::int64_t>(element);
}

template <>
std::optional<bool> readAs(JsonElement element) {
  return readOrNothing<bool>(element);
}

template <>
std::optional<Instant> readAs(JsonElement element) {
  const auto text = readAs<std::string>(element);
  return text ? parseDate(trimmed(*text)) : std::nullopt;
}

template <>
std::optional<std::vector<std::string>> readAs(JsonElement element) {
  JsonArray array;
  if (element.get(array) != simdjson::SUCCESS) return {};
  std::vector<std::string> texts;
  for (const JsonElement item : array) {
    if (auto text = readAs<std::string>(item)) texts.push_back(std::move(*text));
  }
  return texts;
}

template <>
std::optional<std::vector<std::int64_t>> readAs(JsonElement element) {
  return readOrNothing<std::vector<std::int64_t>>(element);
}

CatalogBlock CatalogBlock::orElse(const CatalogBlock& other) const {
  CatalogBlock both = *this;
  both.objects_.insert(both.objects_.end(), other.objects_.begin(), other.objects_.end());
  return both;
}

std::string CatalogBlock::text(std::string_view key) const {
  return get<std::string>(key).value_or("");
}

CatalogBlock CatalogBlock::block(std::string_view key) const {
  for (const JsonObject& object : objects_) {
    JsonObject inner;
    if (object[key].get(inner) == simdjson::SUCCESS) return CatalogBlock(inner);
  }
  return {};
}

std::vector<CatalogBlock> CatalogBlock::list(std::string_view key) const {
  for (const JsonObject& object : objects_) {
    JsonArray array;
    if (object[key].get(array) != simdjson::SUCCESS) continue;
    std::vector<CatalogBlock> blocks;
    for (const JsonElement item : array) {
      JsonObject inner;
      if (item.get(inner) == simdjson::SUCCESS) blocks.emplace_back(inner);
    }
    return blocks;
  }
  const CatalogBlock single = block(key);
  if (single.isEmpty()) return {};
  return {single};
}

std::vector<std::string_view> CatalogBlock::keysStartingWith(std::string_view beginning) const {
  std::vector<std::string_view> keys;
  for (const JsonObject& object : objects_) {
    for (const auto& member : object) {
      if (member.key.starts_with(beginning)) keys.push_back(member.key);
    }
  }
  return keys;
}

std::vector<CatalogBlock> CatalogBlock::innerBlocks() const {
  std::vector<CatalogBlock> blocks;
  for (const JsonObject& object : objects_) {
    for (const auto [key, value] : object) {
      JsonObject inner;
      if (value.get(inner) == simdjson::SUCCESS) blocks.emplace_back(inner);
    }
  }
  return blocks;
}

CatalogAnswer::CatalogAnswer(const std::string& body) try
    : document_(body), resources_(resourcesOf(document_.root())) {
} catch (const DecodingError& error) {
  throw UnreadableAnswer("The catalog's answer", error.what());
}

bool CatalogAnswer::hasNext() const {
  JsonObject root;
  return document_.root().get(root) == simdjson::SUCCESS && jsonMember(root, "next").has_value();
}

std::optional<std::int64_t> storeIdOf(const CatalogBlock& resource) {
  const auto id = resource.get<std::int64_t>("id");
  return id && *id > 0 ? id : std::nullopt;
}

std::optional<std::string> textIdOf(const CatalogBlock& resource) {
  if (auto text = resource.get<std::string>("id")) return text;
  const auto number = storeIdOf(resource);
  return number ? std::optional(std::to_string(*number)) : std::nullopt;
}

CatalogBlock attributesFor(const CatalogBlock& resource, Platform platform) {
  const CatalogBlock attributes = resource.block("attributes");
  const CatalogBlock platforms = attributes.block("platformAttributes");
  CatalogBlock result;
  for (const std::string_view key : blockKeys(platform)) {
    result = result.orElse(platforms.block(key));
  }
  return result.orElse(attributes);
}

std::vector<CatalogBlock> relatedResources(const CatalogBlock& resource, std::string_view name) {
  return resource.block("relationships").orElse(resource.block("views")).block(name).list("data");
}

CatalogBlock offerIn(const CatalogBlock& attributes) {
  const auto offers = attributes.list("offers");
  const auto priced = std::find_if(offers.begin(), offers.end(), [](const CatalogBlock& offer) {
    return offer.get<double>("price").has_value();
  });
  if (priced != offers.end()) return *priced;
  return offers.empty() ? CatalogBlock() : offers.front();
}

}  // namespace quillet
