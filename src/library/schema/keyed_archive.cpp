// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "library/schema/keyed_archive.h"

#include <array>
#include <cstddef>
#include <utility>

#include "base/binary_plist_reader.h"
#include "library/schema/binary_plist_writer.h"

namespace quillet {
namespace {

using Ref = BinaryPlistWriter::Ref;

constexpr std::int64_t kArchiveVersion = 100000;

/// A text that the archive stores once may stand in many elements. Real arrays stay far below this
/// many times the archive's size; what goes beyond was made to exhaust memory.
constexpr std::size_t kMostGrowth = 16;

Ref add(BinaryPlistWriter& plist, std::int64_t value) { return plist.addInteger(value); }
Ref add(BinaryPlistWriter& plist, const std::string& value) { return plist.addText(value); }

Ref addArrayClass(BinaryPlistWriter& plist) {
  const Ref name = plist.addText("NSArray");
  const Ref classes = plist.addArray(std::array{name, plist.addText("NSObject")});
  const Ref nameKey = plist.addText("$classname");
  return plist.addDictionary({{nameKey, name}, {plist.addText("$classes"), classes}});
}

/// The array as an object of the archive: its elements stand from place 2 on, its class after them.
Ref addArrayObject(BinaryPlistWriter& plist, std::size_t count) {
  std::vector<Ref> places;
  for (std::size_t i = 0; i < count; ++i) {
    places.push_back(plist.addUid(static_cast<std::uint32_t>(i + 2)));
  }
  const Ref list = plist.addArray(places);
  const Ref listKey = plist.addText("NS.objects");
  const Ref place = plist.addUid(static_cast<std::uint32_t>(count + 2));
  return plist.addDictionary({{listKey, list}, {plist.addText("$class"), place}});
}

template <typename Value>
std::string archived(const std::vector<Value>& values) {
  BinaryPlistWriter plist;
  std::vector<Ref> objects{plist.addText("$null"), addArrayObject(plist, values.size())};
  for (const Value& value : values) objects.push_back(add(plist, value));
  objects.push_back(addArrayClass(plist));
  const Ref rootKey = plist.addText("root");
  const Ref top = plist.addDictionary({{rootKey, plist.addUid(1)}});
  const Ref version = plist.addInteger(kArchiveVersion);
  const Ref archiver = plist.addText("NSKeyedArchiver");
  const Ref list = plist.addArray(objects);
  return plist.finish(plist.addDictionary({{plist.addText("$version"), version},
                                           {plist.addText("$archiver"), archiver},
                                           {plist.addText("$top"), top},
                                           {plist.addText("$objects"), list}}));
}

/// The archive's objects, named by the places that stand for them elsewhere.
struct ArchivedObjects {
  BinaryPlistReader plist;
  PlistObject list;

  [[nodiscard]] std::optional<PlistObject> at(const std::optional<PlistObject>& place) const {
    const auto uid = place ? plistUid(*place) : std::nullopt;
    return uid ? plist.element(list, *uid) : std::nullopt;
  }
  [[nodiscard]] std::optional<PlistObject> valueAt(const PlistObject& holder,
                                                   std::string_view key) const {
    return at(plist.value(holder, key));
  }
};

bool isText(const std::optional<PlistObject>& object, std::string_view text) {
  return object && object->type == PlistObject::Type::ascii && object->payload == text;
}

/// Whether an object's class is an array, changeable or not.
bool isArray(const ArchivedObjects& objects, const PlistObject& object) {
  const auto type = objects.valueAt(object, "$class");
  const auto classes = type ? objects.plist.value(*type, "$classes") : std::nullopt;
  if (!classes) return false;
  for (std::size_t i = 0; i < classes->count; ++i) {
    if (isText(objects.plist.element(*classes, i), "NSArray")) return true;
  }
  return false;
}

void readValue(const PlistObject& object, std::optional<std::int64_t>& value) {
  value = plistInteger(object);
}
void readValue(const PlistObject& object, std::optional<std::string>& value) {
  value = plistText(object);
}

template <typename Value>
std::optional<std::vector<Value>> elementsOf(const ArchivedObjects& objects,
                                             const PlistObject& list, std::size_t budget) {
  std::vector<Value> values;
  for (std::size_t i = 0; i < list.count; ++i) {
    const auto object = objects.at(objects.plist.element(list, i));
    if (!object || object->payload.size() > budget) return std::nullopt;
    budget -= object->payload.size();
    std::optional<Value> value;
    readValue(*object, value);
    if (!value) return std::nullopt;
    values.push_back(*std::move(value));
  }
  return values;
}

template <typename Value>
std::optional<std::vector<Value>> unarchived(std::string_view bytes) {
  const auto plist = BinaryPlistReader::open(bytes);
  const auto root = plist ? plist->root() : std::nullopt;
  if (!root) return std::nullopt;
  const auto top = plist->value(*root, "$top");
  const auto objectList = plist->value(*root, "$objects");
  if (!top || !objectList) return std::nullopt;
  const ArchivedObjects objects{*plist, *objectList};
  const auto array = objects.valueAt(*top, "root");
  if (!array || !isArray(objects, *array)) return std::nullopt;
  const auto list = plist->value(*array, "NS.objects");
  if (!list || list->type != PlistObject::Type::array) return std::nullopt;
  return elementsOf<Value>(objects, *list, bytes.size() * kMostGrowth);
}

}  // namespace

std::string archive(const std::vector<std::int64_t>& values) { return archived(values); }
std::string archive(const std::vector<std::string>& values) {
  static const std::string kNone = archived(std::vector<std::string>());  // many rows hold two
  return values.empty() ? kNone : archived(values);
}

template <>
std::optional<std::vector<std::int64_t>> unarchive(std::string_view bytes) {
  return unarchived<std::int64_t>(bytes);
}
template <>
std::optional<std::vector<std::string>> unarchive(std::string_view bytes) {
  return unarchived<std::string>(bytes);
}

}  // namespace quillet
