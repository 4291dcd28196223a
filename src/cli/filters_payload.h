// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include "analysis/filters.h"
#include "base/json_writer.h"

namespace quillet {

/// The filters that are set, in the words of the command line, as one object.
void writeFilters(JsonWriter& writer, const AppFilters& filters);

}  // namespace quillet
