// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include <array>

#include "base/plist_scalars.h"
#include "fuzzing.h"

using namespace quillet;

void quillet::tryInput(std::string_view input) {
  constexpr std::array<std::string_view, 3> kKeys{"a", "CFBundleName", "itemId"};
  readOrRefuse([&] {
    const PlistScalars scalars = readPlistScalars(input, kKeys);
    require(scalars.size() <= kKeys.size(), "nothing but what was asked for");
    for (const std::string_view key : kKeys) {
      const auto text = textAt(scalars, key);
      require(!text || isValidUtf8(*text), "a text is UTF-8");
      // Two bytes of UTF-16 take at most three of UTF-8.
      require(!text || text->size() <= 3 * input.size(), "a text is no larger than the list");
      static_cast<void>(wholeAt(scalars, key));
    }
  });
}
