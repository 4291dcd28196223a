// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "base/plist_scalars.h"

#include <fmt/format.h>

#include <algorithm>
#include <utility>

#include "base/binary_plist_reader.h"
#include "base/errors.h"
#include "base/numbers.h"
#include "base/xml_plist_scanner.h"

namespace quillet {
namespace {

using Keys = std::span<const std::string_view>;

std::optional<PlistScalar> scalarOf(const PlistObject& object) {
  if (object.type == PlistObject::Type::integer) return plistInteger(object);
  return plistText(object);
}

PlistScalars readBinary(std::string_view bytes, Keys keys) {
  const auto plist = BinaryPlistReader::open(bytes);
  const auto root = plist ? plist->root() : std::nullopt;
  if (!root) throw DecodingError("its binary form is damaged");
  if (root->type != PlistObject::Type::dictionary) throw DecodingError("it holds no dictionary");
  PlistScalars scalars;
  for (const std::string_view key : keys) {
    const auto object = plist->value(*root, key);
    auto scalar = object ? scalarOf(*object) : std::nullopt;
    if (scalar) scalars.emplace(key, *std::move(scalar));
  }
  return scalars;
}

/// The value whose tag was just taken.
std::optional<PlistScalar> takeScalar(XmlPlistScanner& xml, const XmlPlistScanner::Tag& tag) {
  if (tag.opens("string")) return xml.takeText(tag);
  if (tag.opens("integer")) return parseWhole(xml.takeText(tag));
  xml.skip(tag);
  return std::nullopt;
}

void takeEntry(XmlPlistScanner& xml, const XmlPlistScanner::Tag& keyTag, Keys keys,
               PlistScalars& scalars) {
  if (!keyTag.opens("key")) xml.refuse("a value has no key");
  std::string key = xml.takeText(keyTag);
  const auto tag = xml.takeTag();
  const bool isWanted = std::find(keys.begin(), keys.end(), key) != keys.end();
  if (!isWanted || scalars.contains(key)) {
    xml.skip(tag);
  } else if (auto scalar = takeScalar(xml, tag)) {
    scalars.emplace(std::move(key), *std::move(scalar));
  }
}

PlistScalars readXml(std::string_view text, Keys keys) {
  XmlPlistScanner xml(text);
  const auto root = xml.takeTag();
  if (!root.opens("dict")) xml.refuse("it holds no dictionary");
  PlistScalars scalars;
  if (root.kind != XmlPlistScanner::Tag::Kind::empty) {
    for (auto tag = xml.takeTag(); !tag.closes("dict"); tag = xml.takeTag()) {
      takeEntry(xml, tag, keys, scalars);
    }
  }
  if (!xml.takeTag().closes("plist")) xml.refuse("it holds more than one value");
  return scalars;
}

}  // namespace

PlistScalars readPlistScalars(std::string_view bytes, Keys keys) {
  if (bytes.size() > kLargestPlist) {
    throw DecodingError(fmt::format("it is larger than {} KiB", kLargestPlist / 1024));
  }
  return bytes.starts_with("bplist") ? readBinary(bytes, keys) : readXml(bytes, keys);
}

std::optional<std::string> textAt(const PlistScalars& scalars, std::string_view key) {
  const auto found = scalars.find(key);
  const auto* text = found == scalars.end() ? nullptr : std::get_if<std::string>(&found->second);
  return text == nullptr ? std::nullopt : std::optional(*text);
}

std::optional<std::int64_t> wholeAt(const PlistScalars& scalars, std::string_view key) {
  const auto found = scalars.find(key);
  if (found == scalars.end()) return std::nullopt;
  if (const auto* whole = std::get_if<std::int64_t>(&found->second)) return *whole;
  return parseWhole(std::get<std::string>(found->second));
}

}  // namespace quillet
