// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/services/command_tool.h"

#include <fmt/format.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <ranges>
#include <string_view>

namespace quillet {

namespace {

namespace fs = std::filesystem;

constexpr std::string_view kProgram = "quillet";

/// One of the files that come with the program: where an installation has it, below its prefix, and
/// where the user's own goes.
struct SharedFile {
  ToolPart part;
  std::array<std::string_view, 2> installed;  ///< as packages and as others have it
  fs::path ToolPlaces::* base;
  std::string_view folder;  ///< below the base
};

// Where each shell looks by itself, but for zsh, which has no such folder of the user's.
const std::array kSharedFiles{
    SharedFile{ToolPart::manualPage,
               {"share/man/man1/quillet.1", "share/man/man1/quillet.1.gz"},
               &ToolPlaces::dataHome,
               "man/man1"},
    SharedFile{ToolPart::bash,
               {"share/bash-completion/completions/quillet", ""},
               &ToolPlaces::dataHome,
               "bash-completion/completions"},
    SharedFile{ToolPart::zsh,
               {"share/zsh/site-functions/_quillet", "share/zsh/vendor-completions/_quillet"},
               &ToolPlaces::dataHome,
               "zsh/site-functions"},
    SharedFile{ToolPart::fish,
               {"share/fish/vendor_completions.d/quillet.fish", ""},
               &ToolPlaces::configHome,
               "fish/completions"},
};

bool isFile(const fs::path& path) {
  std::error_code error;
  return fs::is_regular_file(path, error);
}

/// Whether both lead to one file that exists.
bool isSame(const fs::path& left, const fs::path& right) {
  std::error_code error;
  return fs::equivalent(left, right, error) && !error;
}

/// One that leads nowhere is something as well.
LinkState stateOf(const fs::path& link, const fs::path& target) {
  std::error_code error;
  const fs::file_status status = fs::symlink_status(link, error);
  if (status.type() == fs::file_type::not_found) return LinkState::absent;
  if (status.type() != fs::file_type::symlink) return LinkState::other;
  const bool isOurs = fs::read_symlink(link, error) == target || isSame(link, target);
  return isOurs ? LinkState::ours : LinkState::other;
}

void add(std::vector<ToolLink>& links, ToolPart part, const fs::path& link,
         const fs::path& target) {
  links.push_back({part, link, target, stateOf(link, target)});
}

std::vector<ToolLink> linksOf(const ToolPlaces& places, const fs::path& folder) {
  std::vector<ToolLink> links;
  add(links, ToolPart::program, folder / kProgram, places.executable);
  const fs::path prefix = places.executable.parent_path().parent_path();
  for (const SharedFile& file : kSharedFiles) {
    for (const std::string_view installed : file.installed) {
      const fs::path target = prefix / installed;
      if (installed.empty() || !isFile(target)) continue;
      add(links, file.part, places.*file.base / file.folder / target.filename(), target);
      break;
    }
  }
  return links;
}

std::vector<fs::path> foldersIn(std::string_view searchPath) {
  std::vector<fs::path> folders;
  for (const auto part : std::views::split(searchPath, ':')) {
    const fs::path folder(std::string(part.begin(), part.end()));
    // What is looked for from wherever somebody stands means nothing here.
    if (folder.is_absolute()) folders.push_back(folder.lexically_normal());
  }
  return folders;
}

std::optional<fs::path> commandIn(const std::vector<fs::path>& folders) {
  for (const fs::path& folder : folders) {
    const fs::path file = folder / kProgram;
    if (isFile(file) && ::access(file.c_str(), X_OK) == 0) return file;
  }
  return {};
}

/// Nothing that is there is replaced: the system itself refuses that.
std::error_code makeLink(const ToolLink& link) {
  std::error_code error;
  fs::create_directories(link.link.parent_path(), error);
  if (!error) fs::create_symlink(link.target, link.link, error);
  return error;
}

/// As far as they are below the home. The system removes no folder that holds anything, and this
/// call no link to one: where the user keeps a folder elsewhere, the link to it stays.
void removeEmptyFolders(fs::path folder, const fs::path& home) {
  const auto isInside = [&home](const fs::path& path) {
    const fs::path below = path.lexically_relative(home);
    return !below.empty() && below != "." && *below.begin() != "..";
  };
  while (isInside(folder) && ::rmdir(folder.c_str()) == 0) folder = folder.parent_path();
}

}  // namespace

CommandTool lookAtTool(const ToolPlaces& places) {
  CommandTool tool;
  tool.home = places.home;
  tool.folder = places.home / ".local/bin";
  tool.isInFolder = isSame(places.executable.parent_path(), tool.folder);
  // An installation below ~/.local needs no links to itself.
  if (!tool.isInFolder && !places.executable.empty()) tool.links = linksOf(places, tool.folder);
  const std::vector<fs::path> folders = foldersIn(places.searchPath);
  tool.isFolderSearched = std::ranges::any_of(folders, [&tool](const fs::path& folder) {
    return folder == tool.folder || folder == tool.folder / "" || isSame(folder, tool.folder);
  });
  tool.found = commandIn(folders);
  tool.isFoundOurs = tool.found && isSame(*tool.found, places.executable);
  return tool;
}

std::vector<std::string> installTool(const CommandTool& tool) {
  std::vector<std::string> failures;
  for (const ToolLink& link : tool.links) {
    if (link.state != LinkState::absent) continue;
    if (const std::error_code error = makeLink(link))
      failures.push_back(
          fmt::format("'{}' could not be made: {}.", link.link.string(), error.message()));
  }
  return failures;
}

std::vector<std::string> removeTool(const CommandTool& tool) {
  std::vector<std::string> failures;
  for (const ToolLink& link : tool.links) {
    if (stateOf(link.link, link.target) != LinkState::ours) continue;
    std::error_code error;
    fs::remove(link.link, error);
    if (error)
      failures.push_back(
          fmt::format("'{}' could not be removed: {}.", link.link.string(), error.message()));
    removeEmptyFolders(link.link.parent_path(), tool.home);
  }
  return failures;
}

}  // namespace quillet
