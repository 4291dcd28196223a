// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <initializer_list>
#include <string>
#include <vector>

#include "base/text.h"

namespace quillet {

/// The words of a command line, written as one text where none of them has a blank.
class Words : public std::vector<std::string> {
 public:
  Words(const char* line) : Words(std::string(line)) {}
  Words(const std::string& line) {
    for (const std::string_view word : split(line, ' ')) emplace_back(word);
  }
  Words(std::initializer_list<std::string> words) : std::vector<std::string>(words) {}
};

}  // namespace quillet
