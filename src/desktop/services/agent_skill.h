// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace quillet {

/// The text that tells AI agents how to use this program, as this installation has it; absent where
/// it has none. `executable` is resolved.
[[nodiscard]] std::optional<std::string> installedSkill(const std::filesystem::path& executable);

/// The text as it is put into a folder: its last line names the version and tells whether somebody
/// has changed it since.
[[nodiscard]] std::string stampedSkill(std::string text, std::string_view version);

enum class SkillState {
  absent,
  current,
  outdated,  ///< ours, unchanged, of an earlier version or another build of this one
  newer,     ///< likewise, of a later version
  changed,   ///< not as we wrote it, or not ours
};

/// A folder in which an agent looks for skills, and ours in it.
struct SkillTarget {
  std::string agent;             ///< as its folder calls it
  std::filesystem::path folder;  ///< of all its skills
  std::filesystem::path file;
  SkillState state = SkillState::absent;
  std::string kept;  ///< what is in the file
};

/// How the skill, which has its stamp, stands in such a folder.
[[nodiscard]] SkillTarget skillIn(const std::filesystem::path& folder, const std::string& skill);

/// Those of the agents that have one below the home or its ".config", by name.
[[nodiscard]] std::vector<SkillTarget> skillTargets(const std::filesystem::path& home,
                                                    const std::string& skill);

// Both throw FileError, and where the file or our folder is a link, or what is in the file is not
// what the target says any more.

void writeSkill(const SkillTarget& target, const std::string& skill);
/// Only what nobody has changed, and the folder that held nothing else.
void removeSkill(const SkillTarget& target);

/// The lines of two texts: those of the first alone behind "- ", those of the second alone behind
/// "+ ", and those of both behind two blanks. Of very long texts what lies between the lines at
/// their beginnings and ends counts as changed as a whole.
[[nodiscard]] std::string differenceOf(std::string_view before, std::string_view after);

}  // namespace quillet
