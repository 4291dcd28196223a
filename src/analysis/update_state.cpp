// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "analysis/update_state.h"

#include "base/versions.h"

namespace quillet {

std::optional<bool> isUpdateAvailable(const std::optional<std::string>& installed,
                                      const std::optional<std::string>& store) {
  if (!installed || !store) return {};
  return compareVersions(*installed, *store) < 0;
}

bool isUpdateWanted(const std::optional<std::string>& installed,
                    const std::optional<std::string>& store,
                    const std::optional<std::string>& skipped) {
  if (!isUpdateAvailable(installed, store).value_or(false)) return false;
  return !skipped || compareVersions(*skipped, *store) != 0;
}

}  // namespace quillet
