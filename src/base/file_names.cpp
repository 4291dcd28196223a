// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "base/file_names.h"

#include <unicode/locid.h>
#include <unicode/uchar.h>
#include <unicode/unistr.h>

#include "base/columns.h"

namespace quillet {

namespace {

constexpr std::size_t kLongestName = 40;

/// Marks belong to the letter before them.
bool isOfAWord(UChar32 point) {
  return u_isUAlphabetic(point) != 0 || u_isdigit(point) != 0 ||
         (U_MASK(u_charType(point)) & U_GC_M_MASK) != 0;
}

}  // namespace

std::string fileNameOf(std::string_view name) {
  auto text = icu::UnicodeString::fromUTF8({name.data(), static_cast<std::int32_t>(name.size())});
  text.toLower(icu::Locale::getRoot());
  icu::UnicodeString plain;
  for (std::int32_t i = 0; i < text.length(); i = text.moveIndex32(i, 1)) {
    const UChar32 point = text.char32At(i);
    plain.append(isOfAWord(point) ? point : UChar32{'-'});
  }
  std::string utf8;
  plain.toUTF8String(utf8);
  return std::string(firstCharacters(utf8, kLongestName));
}

}  // namespace quillet
