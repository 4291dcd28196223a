// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "cli/command_table.h"

namespace quillet {

/// What the build says of itself; absent where it does not.
struct ProgramVersion {
  std::optional<std::string> shortVersion;
  std::optional<std::string> buildNumber;
};

/// The version of this build.
[[nodiscard]] ProgramVersion programVersion();

/// "quillet 1.4 (build 57)"; "unknown" and "?" stand for what is absent.
[[nodiscard]] std::string versionText(const ProgramVersion& version);

/// The help of a topic in the order in which it is printed, without the blank lines between.
struct HelpSections {
  std::string about;
  std::string usage;              ///< with the options
  std::string_view notesHeading;  ///< empty where the notes have none
  std::string notes;              ///< paragraphs that blank lines divide; may be empty
  std::string examples;
};

/// Empty for the main help, which has no such parts.
[[nodiscard]] HelpSections helpSections(HelpTopic topic);

/// The help for a command word, without a final line feed. Any other word gets the main help.
[[nodiscard]] std::string helpText(std::string_view word, const ProgramVersion& version);

}  // namespace quillet
