// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "fuzzing.h"
#include "scan/mach_o.h"

using namespace quillet;

void quillet::tryInput(std::string_view input) {
  readOrRefuse([&] {
    const auto architectures = architecturesOf(input);
    require(!architectures.empty(), "an executable is compiled for something");
    const auto longer = architecturesOf(std::string(input) + "more");
    require(longer == architectures, "what follows the names changes nothing");
  });
}
