// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "base/versions.h"
#include "fuzzing.h"

using namespace quillet;

void quillet::tryInput(std::string_view input) {
  const auto pieces = split(input, '\n');
  const std::string_view left = pieces.front();
  const std::string_view right = pieces.back();
  require(compareVersions(left, left) == 0, "a version equals itself");
  require(compareVersions(left, std::string(left) + ".0") == 0, "zeros at the end count nothing");
  require(compareVersions(left, right) == (0 <=> compareVersions(right, left)),
          "the order is the same from both sides");
}
