// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <optional>
#include <span>
#include <string>

namespace quillet {

/// What a start of the desktop application is asked to do.
struct DesktopArguments {
  bool isBackground = false;  ///< no window
  bool checksPrices = false;
  std::optional<std::string> section;    ///< its name, as given
  std::optional<std::string> opens;      ///< a link or an ID
  std::optional<std::string> newSearch;  ///< what to search for
  bool answersSearches = false;          ///< of the desktop, which starts no application

  friend bool operator==(const DesktopArguments&, const DesktopArguments&) = default;
};

/// From the arguments after the program's name. What is unknown is ignored, for the windowing
/// system has options of its own; so is an option without its value, which is the next argument
/// unless that is empty or begins with "--". Of an option given twice the last one counts. A link
/// of our own to open stands for what it asks for.
[[nodiscard]] DesktopArguments parseDesktopArguments(std::span<const std::string> arguments);

}  // namespace quillet
