// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "sandbox/data_object.h"

#include <fmt/format.h>

#include <utility>

namespace quillet::sandbox {

namespace {

int narrowed(std::int64_t number, std::string_view key) {
  if (!std::in_range<int>(number)) throw DecodingError(fmt::format("\"{}\" is too large", key));
  return static_cast<int>(number);
}

}  // namespace

void readElement(JsonElement element, std::string_view key, int& into) {
  std::int64_t number = 0;
  readElement(element, key, number);
  into = narrowed(number, key);
}

void readElement(JsonElement element, std::string_view key, std::vector<int>& into) {
  std::vector<std::int64_t> numbers;
  readElement(element, key, numbers);
  into.clear();
  for (const std::int64_t number : numbers) into.push_back(narrowed(number, key));
}

void readElement(JsonElement element, std::string_view key, StorefrontSet& into) {
  std::vector<std::string> codes;
  readElement(element, key, codes);
  into.reset();
  for (const std::string& code : codes) {
    const auto storefront = storefrontWithCode(code);
    if (!storefront) throw DecodingError(fmt::format("there is no storefront \"{}\"", code));
    into.set(static_cast<std::size_t>(*storefront));
  }
}

DataObject::DataObject(JsonElement element, std::string name) : name_(std::move(name)) {
  if (!element.is_object()) fail("no object");
  object_ = element.get_object();
}

std::vector<std::string> DataObject::texts(std::string_view key) {
  auto texts = needed<std::vector<std::string>>(key);
  if (texts.empty()) fail(fmt::format("\"{}\" is empty", key));
  return texts;
}

std::optional<JsonElement> DataObject::member(std::string_view key) {
  const auto element = jsonMember(object_, key);
  if (element) known_.emplace(key);
  return element;
}

JsonElement DataObject::element(std::string_view key) {
  const auto element = member(key);
  if (!element) fail(fmt::format("\"{}\" is missing", key));
  return *element;
}

JsonArray DataObject::list(std::string_view key) {
  const JsonElement element = this->element(key);
  if (!element.is_array()) fail(fmt::format("\"{}\" is no list", key));
  return element.get_array();
}

void DataObject::requireNoOthers() const {
  for (const auto& [key, value] : object_) {
    if (!known_.contains(key)) fail(fmt::format("nothing is called \"{}\"", key));
  }
}

void DataObject::fail(std::string_view reason) const {
  throw DecodingError(fmt::format("{}: {}", name_, reason));
}

}  // namespace quillet::sandbox
