// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <string>
#include <utility>
#include <vector>

#include "analysis/filters.h"

namespace quillet {

/// One pair of a key and a value for each filter that is set, in the words of the command line:
/// what an answer echoes and a list of saved searches shows. Numbers are decimal text ("5.0").
[[nodiscard]] std::vector<std::pair<std::string, std::string>> activeFilterWords(
    const AppFilters& filters);

}  // namespace quillet
