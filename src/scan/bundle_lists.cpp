// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "scan/bundle_lists.h"

#include <algorithm>
#include <array>
#include <initializer_list>

#include "base/plist_scalars.h"
#include "base/text.h"

namespace quillet {
namespace {

/// In bytes. Names in the store have 30 characters, and files 255.
constexpr std::size_t kLongestText = 1024;

using Keys = std::initializer_list<std::string_view>;

/// The first of the keys' texts that says something.
std::optional<std::string> firstText(const PlistScalars& scalars, Keys keys) {
  for (const std::string_view key : keys) {
    const std::string text = printable(textAt(scalars, key).value_or(""));
    const std::string_view said = trimmed(text);
    if (!said.empty() && said.size() <= kLongestText) return std::string(said);
  }
  return std::nullopt;
}

bool isOfIdentifier(char c) {
  return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '.' ||
         c == '-' || c == '_';
}

/// Many are asked for in one address: a comma in one would ask for two.
std::optional<std::string> identifierAt(const PlistScalars& scalars, std::string_view key) {
  auto text = firstText(scalars, {key});
  if (text && !std::all_of(text->begin(), text->end(), isOfIdentifier)) return std::nullopt;
  return text;
}

/// Not cleaned: it has to be the file's name to the byte.
std::optional<std::string> fileNameAt(const PlistScalars& scalars, std::string_view key) {
  auto name = textAt(scalars, key);
  if (!name || name->empty() || name->size() > kLongestText) return std::nullopt;
  if (*name == "." || *name == "..") return std::nullopt;
  const bool isPath =
      std::any_of(name->begin(), name->end(), [](char c) { return c == '/' || c == '\0'; });
  return isPath ? std::nullopt : name;
}

constexpr std::array<std::string_view, 8> kInfoKeys{
    "CFBundleIdentifier",         "CFBundleDisplayName", "CFBundleName",
    "CFBundleShortVersionString", "CFBundleVersion",     "LSMinimumSystemVersion",
    "MinimumOSVersion",           "CFBundleExecutable"};

constexpr std::array<std::string_view, 5> kNoteKeys{"itemId", "softwareVersionBundleId", "itemName",
                                                    "title", "bundleShortVersionString"};

}  // namespace

BundleInfo readBundleInfo(std::string_view bytes) {
  const PlistScalars scalars = readPlistScalars(bytes, kInfoKeys);
  return {identifierAt(scalars, "CFBundleIdentifier"),
          firstText(scalars, {"CFBundleDisplayName", "CFBundleName"}),
          firstText(scalars, {"CFBundleShortVersionString", "CFBundleVersion"}),
          firstText(scalars, {"LSMinimumSystemVersion", "MinimumOSVersion"}),
          fileNameAt(scalars, "CFBundleExecutable")};
}

StoreNote readStoreNote(std::string_view bytes) {
  const PlistScalars scalars = readPlistScalars(bytes, kNoteKeys);
  const auto trackId = wholeAt(scalars, "itemId");
  return {trackId && *trackId > 0 ? trackId : std::nullopt,
          identifierAt(scalars, "softwareVersionBundleId"),
          firstText(scalars, {"itemName", "title"}),
          firstText(scalars, {"bundleShortVersionString"})};
}

}  // namespace quillet
