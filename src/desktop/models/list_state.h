// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>
#include <exception>
#include <optional>
#include <string_view>
#include <variant>

#include "base/dates.h"

namespace quillet {

/// What lists read of the catalog beside the store's records.
enum class FactKind { purchases, architecture, ratings };

struct Empty {};
struct Loading {
  Instant since{};
};
struct Ready {};
struct Stale {
  Instant asOf{};
};
/// Requests wait for their turn.
struct BudgetWait {
  Instant until{};
};
/// The store asked for fewer requests.
struct Throttled {
  Instant until{};
};
/// What the catalog says of apps that are already there, and of how many of them it was asked.
struct Reading {
  FactKind what = FactKind::purchases;
  std::size_t done = 0;
  std::size_t total = 0;
};
/// Such a reading that the user stopped; what was read by then is shown.
struct Paused {
  FactKind what = FactKind::purchases;
  std::size_t done = 0;
  std::size_t total = 0;
};
/// Installed apps are read from their folders, and matched with the store's.
struct Scanning {
  std::size_t done = 0;
  std::size_t total = 0;
  std::size_t matched = 0;
  bool isMeasuring = false;  ///< all are read, and their sizes are counted
};
struct Offline {};
/// The store answered that it has nothing (any more).
struct Gone {
  QString message;
};
struct Failed {
  QString message;
  QString details = {};  ///< sentences for those who want to know more
};
/// The user's settings leave the list as it is.
struct SwitchedOff {
  QString message;
};

/// How a list stands. Its rows, if there are any, are shown in every state.
using ListState = std::variant<Empty, Loading, Ready, Stale, BudgetWait, Throttled, Reading, Paused,
                               Scanning, Offline, Gone, Failed, SwitchedOff>;

/// What became of a question that threw. Cancelled ones are no state: the caller knows of its stop.
[[nodiscard]] ListState listStateOf(const std::exception_ptr& error);

enum class StripTone { quiet, warning };
enum class StripAction { none, refresh, stop, goOn, tryAgain, settings };

/// One line above the rows.
struct StripText {
  std::string_view icon;
  QString text;
  StripTone tone = StripTone::quiet;
  StripAction action = StripAction::none;
  bool isError = false;  ///< whose mark alone is red
  QString details;       ///< what a button tells on demand; empty for none
};

/// Absent where there is nothing to say.
[[nodiscard]] std::optional<StripText> stripOf(const ListState& state, Instant now);

}  // namespace quillet
