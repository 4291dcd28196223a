// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace quillet {

/// Where the program lies, and the folders of whoever runs it. All paths are absolute.
struct ToolPlaces {
  std::filesystem::path executable;  ///< resolved; empty where that is not known
  std::filesystem::path home;
  std::filesystem::path dataHome;    ///< "~/.local/share"
  std::filesystem::path configHome;  ///< "~/.config"
  std::string searchPath;            ///< folders of commands, parted by colons
};

enum class ToolPart { program, manualPage, bash, zsh, fish };

enum class LinkState {
  absent,
  ours,   ///< a link that leads to our file
  other,  ///< anything else, which is never touched
};

/// A link in one of the user's folders, and the file of this installation that it is to lead to.
struct ToolLink {
  ToolPart part = ToolPart::program;
  std::filesystem::path link;
  std::filesystem::path target;
  LinkState state = LinkState::absent;

  friend bool operator==(const ToolLink&, const ToolLink&) = default;
};

/// How `quillet` is reached as a command.
struct CommandTool {
  /// The program's first. Empty where the program itself lies in the folder, or nobody knows where.
  std::vector<ToolLink> links;
  std::optional<std::filesystem::path> found;  ///< what the command would start
  bool isFoundOurs = false;                    ///< whether that is this program
  std::filesystem::path home;
  std::filesystem::path folder;   ///< of the program's link
  bool isFolderSearched = false;  ///< whether commands are looked for there
  bool isInFolder = false;        ///< whether the program itself lies there
};

[[nodiscard]] CommandTool lookAtTool(const ToolPlaces& places);

// Both go on where one link cannot be made or removed, and return a sentence for each such.

/// Makes the links that are absent, and the folders for them.
[[nodiscard]] std::vector<std::string> installTool(const CommandTool& tool);
/// Removes the links that are ours by now, and the folders that hold nothing without them.
[[nodiscard]] std::vector<std::string> removeTool(const CommandTool& tool);

}  // namespace quillet
