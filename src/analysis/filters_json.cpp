// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "analysis/filters_json.h"

#include <fmt/format.h>

#include <limits>

#include "base/errors.h"
#include "base/json_reader.h"
#include "base/json_writer.h"

namespace quillet {

namespace {

// The keys of a release filter's cases and of their values; stored, never change.
constexpr std::string_view kWithin = "within";
constexpr std::string_view kBefore = "before";
constexpr std::string_view kFrom = "from";
constexpr std::string_view kMonths = "months";
constexpr std::string_view kYear = "year";

/// {"within": {"months": 6}}
void writeCase(JsonWriter& writer, std::string_view name, std::string_view field,
               std::int64_t number) {
  writer.beginObject();
  writer.key(name);
  writer.beginObject();
  writer.member(field, number);
  writer.endObject();
  writer.endObject();
}

struct ReleasedWriter {
  JsonWriter& writer;

  void operator()(const ReleasedWithin& filter) const {
    writeCase(writer, kWithin, kMonths, filter.months);
  }
  void operator()(const ReleasedBefore& filter) const {
    writeCase(writer, kBefore, kYear, filter.year);
  }
  void operator()(const ReleasedFrom& filter) const {
    writeCase(writer, kFrom, kYear, filter.year);
  }
};

void writeReleased(JsonWriter& writer, const std::optional<ReleasedFilter>& filter) {
  if (!filter) return;
  writer.key("released");
  std::visit(ReleasedWriter{writer}, *filter);
}

/// The version stands under "_0", the key of a value without a name.
void writeRunsOn(JsonWriter& writer, const std::optional<OSRequirement>& system) {
  if (!system) return;
  writer.key("runsOn");
  writer.beginObject();
  writer.key("atMost");
  writer.beginObject();
  writer.member("_0", system->atMost);
  writer.endObject();
  writer.endObject();
}

template <typename Number>
Number inRange(Number number, Number lowest, Number highest, std::string_view key) {
  if (number < lowest || number > highest) {
    throw DecodingError(fmt::format("'{}' is out of range", key));
  }
  return number;
}

/// The first case, "any", when the key is missing.
template <typename Enum, std::size_t N>
Enum readCase(const JsonObject& object, std::string_view key, const EnumTable<Enum, N>& table) {
  const auto text = memberOf<std::string>(object, key);
  if (!text) return table.front().value;
  const auto value = valueOf(table, *text);
  if (!value) throw DecodingError(fmt::format("'{}' has the unknown case '{}'", key, *text));
  return *value;
}

JsonObject objectIn(JsonElement element, std::string_view key) {
  JsonObject object;
  if (element.get(object) != simdjson::SUCCESS) {
    throw DecodingError(fmt::format("'{}' is not an object", key));
  }
  return object;
}

/// The one member of an object that stands for a case.
simdjson::dom::key_value_pair onlyMember(const JsonObject& object, std::string_view key) {
  if (object.size() != 1) {
    throw DecodingError(fmt::format("'{}' does not hold one value", key));
  }
  return *object.begin();
}

std::int64_t readField(JsonElement content, std::string_view field, std::int64_t highest) {
  const auto number = memberOf<std::int64_t>(objectIn(content, field), field);
  if (!number) throw DecodingError(fmt::format("'{}' is missing", field));
  return inRange(*number, std::int64_t{0}, highest, field);
}

std::optional<ReleasedFilter> readReleased(const JsonObject& object) {
  constexpr std::int64_t kAnyNumber = std::numeric_limits<std::int64_t>::max();
  constexpr std::int64_t kLastYear = 9999;  // the last of four digits
  const auto element = jsonMember(object, "released");
  if (!element) return {};
  const auto [name, content] = onlyMember(objectIn(*element, "released"), "released");
  if (name == kWithin) return ReleasedWithin{readField(content, kMonths, kAnyNumber)};
  if (name == kBefore) return ReleasedBefore{readField(content, kYear, kLastYear)};
  if (name == kFrom) return ReleasedFrom{readField(content, kYear, kLastYear)};
  throw DecodingError(fmt::format("'released' has the unknown case '{}'", name));
}

std::optional<OSRequirement> readRunsOn(const JsonObject& object) {
  const auto element = jsonMember(object, "runsOn");
  if (!element) return {};
  const auto requirement = onlyMember(objectIn(*element, "runsOn"), "runsOn");
  if (requirement.key != "atMost") throw DecodingError("'runsOn' has an unknown case");
  // The name that the version goes by inside differs between writers.
  JsonElement version = requirement.value;
  if (version.is_object()) version = onlyMember(objectIn(version, "atMost"), "atMost").value;
  OSRequirement system;
  readElement(version, "atMost", system.atMost);
  return system;
}

std::optional<double> readMaxPrice(const JsonObject& object) {
  const auto price = memberOf<double>(object, "maxPrice");
  if (price) inRange(*price, 0.0, std::numeric_limits<double>::max(), "maxPrice");
  return price;
}

double readMinRating(const JsonObject& object) {
  constexpr double kMostStars = 5;
  const double rating = memberOf<double>(object, "minRating").value_or(0);
  return inRange(rating, std::numeric_limits<double>::lowest(), kMostStars, "minRating");
}

AppFilters readFilters(const JsonObject& object) {
  AppFilters filters;
  filters.price = readCase(object, "price", kPriceFilterTexts);
  filters.maxPrice = readMaxPrice(object);
  filters.minRating = readMinRating(object);
  filters.minRatingCount = memberOf<std::int64_t>(object, "minRatingCount").value_or(0);
  filters.updatedWithin = readCase(object, "updatedWithin", kUpdatedFilterTexts);
  filters.maxSize = readCase(object, "maxSize", kSizeFilterTexts);
  filters.genre = memberOf<std::string>(object, "genre");
  filters.purchases = readCase(object, "purchases", kPurchaseFilterTexts);
  filters.runsOn = readRunsOn(object);
  filters.architecture = readCase(object, "architecture", kArchitectureFilterTexts);
  filters.released = readReleased(object);
  filters.hideOwned = memberOf<bool>(object, "hideOwned").value_or(false);
  return filters;
}

}  // namespace

std::string encodeFilters(const AppFilters& filters) {
  JsonWriter writer;
  writer.beginObject();
  writer.member("architecture", textOf(kArchitectureFilterTexts, filters.architecture));
  writer.member("genre", filters.genre);
  writer.member("hideOwned", filters.hideOwned);
  writer.member("maxPrice", filters.maxPrice);
  writer.member("maxSize", textOf(kSizeFilterTexts, filters.maxSize));
  writer.member("minRating", filters.minRating);
  writer.member("minRatingCount", filters.minRatingCount);
  writer.member("price", textOf(kPriceFilterTexts, filters.price));
  writer.member("purchases", textOf(kPurchaseFilterTexts, filters.purchases));
  writeReleased(writer, filters.released);
  writeRunsOn(writer, filters.runsOn);
  writer.member("updatedWithin", textOf(kUpdatedFilterTexts, filters.updatedWithin));
  writer.endObject();
  return writer.take();
}

std::optional<AppFilters> decodeFilters(std::string_view json) {
  try {
    const JsonDocument document{std::string(json)};
    return readFilters(objectIn(document.root(), "filters"));
  } catch (const DecodingError&) {
    return {};
  }
}

}  // namespace quillet
