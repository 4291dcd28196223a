// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "base/dates.h"
#include "base/json_reader.h"
#include "store/records/platform.h"

// How the catalog's answers are read. The catalog describes itself to nobody and changes without
// notice, so a value that is missing, null or of an unexpected type is read as not said, and costs
// nothing but itself.

namespace quillet {

/// The value, if the element holds one of that type. Numbers may be written as text; a text is
/// never empty; a date may be a day (its midnight, UTC) and may have fractions of a second, which
/// are dropped.
template <typename T>
[[nodiscard]] std::optional<T> readAs(JsonElement element);

template <>
std::optional<std::string> readAs(JsonElement element);
template <>
std::optional<double> readAs(JsonElement element);
template <>
std::optional<std::int64_t> readAs(JsonElement element);
template <>
std::optional<bool> readAs(JsonElement element);
template <>
std::optional<Instant> readAs(JsonElement element);
/// The texts in a list; what is no text in it is left out.
template <>
std::optional<std::vector<std::string>> readAs(JsonElement element);
/// Absent unless every item is a whole number.
template <>
std::optional<std::vector<std::int64_t>> readAs(JsonElement element);

/// Some of an answer's values: one JSON object, or several that are asked in turn until one says
/// something, or none at all. Valid as long as its answer.
class CatalogBlock {
 public:
  CatalogBlock() = default;
  explicit CatalogBlock(JsonObject object) : objects_{object} {}

  [[nodiscard]] bool isEmpty() const { return objects_.empty(); }

  /// This block, with another one to be asked for what this one does not say.
  [[nodiscard]] CatalogBlock orElse(const CatalogBlock& other) const;

  template <typename T>
  [[nodiscard]] std::optional<T> get(std::string_view key) const {
    for (const JsonObject& object : objects_) {
      const auto member = jsonMember(object, key);
      if (!member) continue;
      if (auto value = readAs<T>(*member)) return value;
    }
    return {};
  }

  /// Empty where it is not said.
  [[nodiscard]] std::string text(std::string_view key) const;

  /// The object under a key, else an empty block.
  [[nodiscard]] CatalogBlock block(std::string_view key) const;

  /// The objects in the list under a key; a single object stands for a list of one.
  [[nodiscard]] std::vector<CatalogBlock> list(std::string_view key) const;

  /// The names of members that begin so, in order.
  [[nodiscard]] std::vector<std::string_view> keysStartingWith(std::string_view beginning) const;

  /// Every object that is a member, in order.
  [[nodiscard]] std::vector<CatalogBlock> innerBlocks() const;

 private:
  std::vector<JsonObject> objects_;
};

/// A whole answer.
class CatalogAnswer {
 public:
  /// Throws DecodingError when `body` is no JSON object with "data".
  explicit CatalogAnswer(const std::string& body);

  /// The resources under "data"; what is no object is left out.
  [[nodiscard]] const std::vector<CatalogBlock>& resources() const { return resources_; }

  /// Whether the answer says that a further page exists.
  [[nodiscard]] bool hasNext() const;

 private:
  JsonDocument document_;
  std::vector<CatalogBlock> resources_;
};

/// The store ID of an app or bundle; absent when it is no positive number.
[[nodiscard]] std::optional<std::int64_t> storeIdOf(const CatalogBlock& resource);

/// The ID of any other resource, whatever it is made of; absent when there is none.
[[nodiscard]] std::optional<std::string> textIdOf(const CatalogBlock& resource);

/// The attributes of an app or bundle: first what is said of the platform alone (under the
/// platform's word, its family's or its system's), then what is said of the whole.
[[nodiscard]] CatalogBlock attributesFor(const CatalogBlock& resource, Platform platform);

/// The resources that stand in a relationship or view of another one.
[[nodiscard]] std::vector<CatalogBlock> relatedResources(const CatalogBlock& resource,
                                                         std::string_view name);

/// The offer to read a price from: the first, unless only a later one has a price.
[[nodiscard]] CatalogBlock offerIn(const CatalogBlock& attributes);

}  // namespace quillet
