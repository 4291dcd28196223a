// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <optional>
#include <string>

namespace quillet {

/// Whether the store's version of an app is newer than the installed one; absent unless both are
/// known.
[[nodiscard]] std::optional<bool> isUpdateAvailable(const std::optional<std::string>& installed,
                                                    const std::optional<std::string>& store);

/// Whether an update is known and is not the one that the user skipped, however that is written:
/// "3.0" skips "3".
[[nodiscard]] bool isUpdateWanted(const std::optional<std::string>& installed,
                                  const std::optional<std::string>& store,
                                  const std::optional<std::string>& skipped);

}  // namespace quillet
