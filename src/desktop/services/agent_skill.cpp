// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/services/agent_skill.h"

#include <fmt/format.h>
#include <unistd.h>

#include <QCryptographicHash>
#include <algorithm>
#include <span>

#include "base/errors.h"
#include "base/versions.h"
#include "system/whole_file.h"

namespace quillet {

namespace {

namespace fs = std::filesystem;

constexpr std::size_t kLargest = 256UL * 1024;  // a skill has some ten kilobytes
constexpr std::string_view kStamp = "<!-- quillet ";
constexpr std::string_view kStampEnd = " -->\n";
constexpr std::size_t kSumDigits = 16;
constexpr const char* kFolder = "quillet";
constexpr const char* kFile = "SKILL.md";

std::string checksum(std::string_view text) {
  const QByteArray bytes(text.data(), static_cast<qsizetype>(text.size()));
  const QByteArray sum = QCryptographicHash::hash(bytes, QCryptographicHash::Sha256).toHex();
  return sum.toStdString().substr(0, kSumDigits);
}

/// Whether it is as we wrote it, in whatever version.
bool isUnchanged(std::string_view kept) {
  const std::size_t stamp = kept.rfind(kStamp);
  if (stamp == std::string_view::npos || !kept.ends_with(kStampEnd)) return false;
  const std::string_view text = kept.substr(0, stamp);
  return kept.ends_with(' ' + checksum(text) + std::string(kStampEnd));
}

/// That the stamp names; of what has one.
std::string_view versionIn(std::string_view kept) {
  const std::string_view stamp = kept.substr(kept.rfind(kStamp) + kStamp.size());
  return stamp.substr(0, stamp.find(' '));
}

/// Empty where there is none. What cannot be read is somebody else's.
std::optional<std::string> readKept(const fs::path& file) {
  std::error_code error;
  if (fs::symlink_status(file, error).type() == fs::file_type::not_found) return std::string();
  try {
    return readWholeFile(file, kLargest);
  } catch (const FileError&) {
    return {};
  }
}

bool isFolder(const fs::path& path) {
  std::error_code error;
  return fs::is_directory(path, error);
}

/// "agent" of "~/.agent/skills".
std::string agentOf(const fs::path& folder) {
  std::string name = folder.parent_path().filename().string();
  if (name.starts_with('.')) name.erase(0, 1);
  return name;
}

/// What a link leads to lies outside of the folder that was chosen.
void throwIfLinked(const SkillTarget& target) {
  for (const fs::path& each : {target.file.parent_path(), target.file}) {
    std::error_code error;
    if (fs::is_symlink(fs::symlink_status(each, error)))
      throw FileError(fmt::format("'{}' is a link to another place, and stays. Nothing was done.",
                                  each.string()));
  }
}

void throwIfOther(const SkillTarget& target) {
  throwIfLinked(target);
  const std::optional<std::string> kept = readKept(target.file);
  if (!kept)
    throw FileError(
        fmt::format("'{}' is nothing that could be shown, and stays.", target.file.string()));
  if (*kept != target.kept)
    throw FileError(
        fmt::format("'{}' has changed meanwhile. Nothing was done.", target.file.string()));
}

using Lines = std::vector<std::string_view>;

Lines linesOf(std::string_view text) {
  Lines lines;
  while (!text.empty()) {
    const std::size_t end = std::min(text.find('\n'), text.size());
    lines.push_back(text.substr(0, end));
    text.remove_prefix(std::min(end + 1, text.size()));
  }
  return lines;
}

Lines takeCommonHead(Lines& left, Lines& right) {
  const auto [first, second] = std::ranges::mismatch(left, right);
  Lines head(left.begin(), first);
  left.erase(left.begin(), first);
  right.erase(right.begin(), second);
  return head;
}

Lines takeCommonTail(Lines& left, Lines& right) {
  std::ranges::reverse(left);
  std::ranges::reverse(right);
  Lines tail = takeCommonHead(left, right);
  for (Lines* each : {&left, &right, &tail}) std::ranges::reverse(*each);
  return tail;
}

void add(std::string& text, std::string_view mark, std::span<const std::string_view> lines) {
  for (const std::string_view line : lines) text.append(mark).append(line).append("\n");
}

/// How many lines the rests of two texts have in common, in their order.
class CommonLines {
 public:
  CommonLines(const Lines& left, const Lines& right)
      : width_(right.size() + 1), counts_((left.size() + 1) * width_) {
    for (std::size_t i = left.size(); i-- > 0;) {
      for (std::size_t j = right.size(); j-- > 0;) {
        counts_[i * width_ + j] =
            left[i] == right[j] ? of(i + 1, j + 1) + 1 : std::max(of(i + 1, j), of(i, j + 1));
      }
    }
  }
  [[nodiscard]] int of(std::size_t i, std::size_t j) const { return counts_[i * width_ + j]; }

 private:
  std::size_t width_;
  std::vector<int> counts_;
};

void addChanges(std::string& text, const Lines& left, const Lines& right) {
  // A skill has some hundred lines. What is no skill may have very many, and goes as a whole.
  constexpr std::size_t kMostPairs = 1'000'000;
  if (left.size() * right.size() > kMostPairs) {
    add(text, "- ", left);
    return add(text, "+ ", right);
  }
  const CommonLines common(left, right);
  std::size_t i = 0;
  std::size_t j = 0;
  while (i < left.size() && j < right.size()) {
    if (left[i] == right[j]) {
      add(text, "  ", std::span(&left[i++], 1));
      ++j;
    } else if (common.of(i + 1, j) >= common.of(i, j + 1)) {
      add(text, "- ", std::span(&left[i++], 1));
    } else {
      add(text, "+ ", std::span(&right[j++], 1));
    }
  }
  add(text, "- ", std::span(left).subspan(i));
  add(text, "+ ", std::span(right).subspan(j));
}

}  // namespace

std::optional<std::string> installedSkill(const fs::path& executable) {
  const fs::path prefix = executable.parent_path().parent_path();
  // As it is installed, and as it was built.
  for (const char* place : {"share/quillet/agent-skill", "tools/manual/skill"}) {
    try {
      return readWholeFile(prefix / place / kFile, kLargest);
    } catch (const FileError&) {
      continue;
    }
  }
  return {};
}

std::string stampedSkill(std::string text, std::string_view version) {
  return fmt::format("{0}{1}{2} {3}{4}", text, kStamp, version, checksum(text), kStampEnd);
}

SkillTarget skillIn(const fs::path& folder, const std::string& skill) {
  SkillTarget target{agentOf(folder), folder, folder / kFolder / kFile, SkillState::changed, ""};
  const std::optional<std::string> kept = readKept(target.file);
  if (!kept) return target;
  target.kept = *kept;
  if (kept->empty()) {
    target.state = SkillState::absent;
  } else if (*kept == skill) {
    target.state = SkillState::current;
  } else if (isUnchanged(*kept)) {
    const bool isNewer = compareVersions(versionIn(*kept), versionIn(skill)) > 0;
    target.state = isNewer ? SkillState::newer : SkillState::outdated;
  }
  return target;
}

std::vector<SkillTarget> skillTargets(const fs::path& home, const std::string& skill) {
  std::vector<SkillTarget> targets;
  for (const fs::path& parent : {home, home / ".config"}) {
    std::error_code error;
    for (const auto& each : fs::directory_iterator(parent, error)) {
      const bool isHidden = each.path().filename().string().starts_with('.');
      const fs::path folder = each.path() / "skills";
      if ((isHidden || parent != home) && isFolder(folder))
        targets.push_back(skillIn(folder, skill));
    }
  }
  std::ranges::sort(targets, {}, &SkillTarget::folder);
  return targets;
}

void writeSkill(const SkillTarget& target, const std::string& skill) {
  throwIfOther(target);
  std::error_code error;
  fs::create_directories(target.file.parent_path(), error);
  if (error)
    throw FileError(fmt::format("'{}' could not be made: {}.", target.file.parent_path().string(),
                                error.message()));
  replaceFile(target.file, skill);
}

void removeSkill(const SkillTarget& target) {
  throwIfOther(target);
  if (!isUnchanged(target.kept))
    throw FileError(
        fmt::format("'{}' was changed since it was written, and stays.", target.file.string()));
  std::error_code error;
  fs::remove(target.file, error);
  if (error)
    throw FileError(
        fmt::format("'{}' could not be removed: {}.", target.file.string(), error.message()));
  ::rmdir(target.file.parent_path().c_str());  // fails where it holds something else
}

std::string differenceOf(std::string_view before, std::string_view after) {
  Lines left = linesOf(before);
  Lines right = linesOf(after);
  const Lines head = takeCommonHead(left, right);
  const Lines tail = takeCommonTail(left, right);
  std::string text;
  add(text, "  ", head);
  addChanges(text, left, right);
  add(text, "  ", tail);
  return text;
}

}  // namespace quillet
