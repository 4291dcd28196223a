// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <cstdint>
#include <string>

namespace quillet::sandbox {

/// What is known of an app whose pictures are drawn.
struct Subject {
  std::uint64_t key = 0;  ///< settles whatever the rest leaves open
  std::string name;
  std::string about;  ///< a few words on what it does
  int genre = 0;      ///< its main category
};

}  // namespace quillet::sandbox
