// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string_view>

#include "base/errors.h"
#include "base/text.h"

namespace quillet {

/// What every target defines. Called with one input after another.
void tryInput(std::string_view input);

/// Ends the run where something that must hold for every input does not, in release builds too.
inline void require(bool holds, const char* what) {
  if (holds) return;
  std::fprintf(stderr, "does not hold: %s\n", what);
  std::abort();
}

/// The input's first bytes as a number, and the rest as text; 0 where there are too few.
template <typename Number>
Number takeNumber(std::string_view& text) {
  Number number{};
  if (text.size() < sizeof number) return number;
  text.copy(reinterpret_cast<char*>(&number), sizeof number);
  text.remove_prefix(sizeof number);
  return number;
}

inline bool isValidUtf8(std::string_view text) {
  while (!text.empty()) {
    const std::size_t length = utf8SequenceLength(text);
    if (length == 0) return false;
    text.remove_prefix(length);
  }
  return true;
}

/// Lets `read` read an input, or refuse it with an error that says why.
template <typename Refusal = DecodingError, typename Read>
void readOrRefuse(Read read) {
  try {
    read();
  } catch (const Refusal& error) {
    require(*error.what() != '\0' && isValidUtf8(error.what()), "a refusal has a reason in UTF-8");
  }
}

}  // namespace quillet
