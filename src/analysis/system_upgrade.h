// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <array>
#include <optional>
#include <string>
#include <string_view>

namespace quillet {

/// Versions of macOS to look ahead to, oldest first.
inline constexpr std::array<std::string_view, 8> kMacSystems{"11", "12", "13", "14",
                                                             "15", "26", "27", "28"};

/// What is known of an app for a Mac with Apple silicon on some version of macOS.
enum class UpgradeOutlook {
  unknown,
  runs,
  needsNewer,  ///< the version in the store asks for a later macOS
  stops,       ///< it needs Rosetta, which that macOS does not have
  stopped,     ///< it is a program of 32 bits, which none of them runs
};

/// What an app's build asks of a Mac; absent means not known.
struct SystemNeeds {
  std::optional<bool> needsRosetta;
  std::optional<std::string> minimumSystem;
  bool is32Bit = false;
};

/// Of macOS `system`, such as "15.2".
[[nodiscard]] UpgradeOutlook outlookOn(std::string_view system, const SystemNeeds& needs);

}  // namespace quillet
