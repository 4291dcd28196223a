// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>
#include <optional>

#include "desktop/look/palette.h"
#include "desktop/models/list_state.h"
#include "library/watchlist_monitor.h"
#include "system/time_zone.h"

namespace quillet {

/// What the window says of price checks.
struct CheckState {
  std::optional<PassProgress> progress;  ///< of the one that runs
  std::optional<Instant> last;           ///< when prices were read
  std::optional<Instant> next;
  bool isHeldBack = false;  ///< the next one waits for a network that is not metered
  bool isThrottled = false;
  bool isOffline = false;
  QString error;       ///< of the last one; empty when it had none
  QString storefront;  ///< the user's, "us"

  friend bool operator==(const CheckState&, const CheckState&) = default;
};

/// As the monitor tells it; `last` is absent before its first pass.
[[nodiscard]] CheckState checkStateOf(const WatchlistMonitor& monitor);

/// The two lines at the foot of the sidebar.
struct CheckWords {
  QString icon;
  Token ink = Token::secondary;  ///< of the icon
  QString line;
  QString second;               ///< may be empty
  std::optional<double> share;  ///< 0 to 1, shown as a bar in the place of the second line

  friend bool operator==(const CheckWords&, const CheckWords&) = default;
};

/// What a list says of how the last check ended: that it failed, or that there was no network.
/// Ready while one runs, and where it only waits.
[[nodiscard]] ListState remarkOf(const CheckState& state);

[[nodiscard]] CheckWords wordsOf(const CheckState& state, Instant now, const UtcOffsetAt& zone);

}  // namespace quillet
