// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

// Where libFuzzer hands over its inputs.

#include "fuzzing.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  quillet::tryInput({reinterpret_cast<const char*>(data), size});
  return 0;
}
