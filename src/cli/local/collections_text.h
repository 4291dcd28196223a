// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <string_view>

#include "cli/local/collections.h"
#include "cli/streams.h"

namespace quillet {

/// The first collection whose name contains `name`, whatever the case of letters in any script.
/// Throws CLIError, not found, where there is none.
[[nodiscard]] const CLICollection& pickCollection(const CLICollections& collections,
                                                  const std::string& name);

[[nodiscard]] std::string renderCollectionsText(const CLICollections& collections,
                                                const TextStyle& style);
[[nodiscard]] std::string renderCollectionText(const CLICollection& collection,
                                               const TextStyle& style);

}  // namespace quillet
