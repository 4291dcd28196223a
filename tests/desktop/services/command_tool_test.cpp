// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/services/command_tool.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <functional>
#include <map>

#include "support/temporary_folder.h"

namespace quillet {
namespace {

namespace fs = std::filesystem;

/// An installation under a prefix of its own, and a home beside it.
class CommandToolTest : public testing::Test {
 protected:
  CommandToolTest() {
    for (const char* each :
         {"prefix/bin/quillet", "prefix/share/man/man1/quillet.1.gz",
          "prefix/share/bash-completion/completions/quillet",
          "prefix/share/zsh/vendor-completions/_quillet",
          "prefix/share/fish/vendor_completions.d/quillet.fish", "elsewhere/quillet"})
      write(each);
    fs::create_directories(home_);
  }

  void write(const fs::path& file) {
    fs::create_directories((folder_.path() / file).parent_path());
    std::ofstream(folder_.path() / file) << "#!/bin/sh\n";
    fs::permissions(folder_.path() / file, fs::perms::owner_all);
  }
  [[nodiscard]] CommandTool look(const std::string& searchPath = "/nowhere") const {
    return lookAtTool(
        {prefix_ / "bin/quillet", home_, home_ / ".local/share", home_ / ".config", searchPath});
  }
  /// Each thing below the home, and where it leads.
  [[nodiscard]] std::map<std::string, std::string> below() const {
    std::map<std::string, std::string> found;
    for (const auto& each : fs::recursive_directory_iterator(home_)) {
      const std::string name = each.path().lexically_relative(home_).string();
      if (each.is_symlink()) {
        found[name] = fs::read_symlink(each.path()).string();
      } else if (!each.is_directory()) {
        found[name] = contentOf(each.path());
      }
    }
    return found;
  }

  TemporaryFolder folder_;
  const fs::path prefix_ = folder_.path() / "prefix";
  const fs::path home_ = folder_.path() / "home";
  const fs::path link_ = home_ / ".local/bin/quillet";
};

TEST_F(CommandToolTest, MakesItsLinksAndTakesThemBack) {
  fs::create_directories(home_ / ".local/share/man");
  std::ofstream(home_ / ".local/share/mine") << "mine";
  EXPECT_TRUE(installTool(look()).empty());
  const std::string prefix = prefix_.string();
  EXPECT_EQ(below(),
            (std::map<std::string, std::string>{
                {".local/bin/quillet", prefix + "/bin/quillet"},
                {".local/share/mine", "mine"},
                {".local/share/man/man1/quillet.1.gz", prefix + "/share/man/man1/quillet.1.gz"},
                {".local/share/bash-completion/completions/quillet",
                 prefix + "/share/bash-completion/completions/quillet"},
                {".local/share/zsh/site-functions/_quillet",
                 prefix + "/share/zsh/vendor-completions/_quillet"},
                {".config/fish/completions/quillet.fish",
                 prefix + "/share/fish/vendor_completions.d/quillet.fish"}}));
  const CommandTool tool = look("relative::/nowhere:" + link_.parent_path().string() + '/');
  EXPECT_TRUE(tool.isFoundOurs && tool.isFolderSearched);
  EXPECT_TRUE(installTool(tool).empty()) << "what is there is left as it is";
  EXPECT_TRUE(removeTool(tool).empty());
  EXPECT_EQ(below(), (std::map<std::string, std::string>{{".local/share/mine", "mine"}}));
  EXPECT_FALSE(fs::exists(home_ / ".config") || fs::exists(home_ / ".local/bin"));
  fs::remove(home_ / ".local/share/mine");
  EXPECT_TRUE(installTool(look()).empty() && removeTool(look()).empty());
  EXPECT_TRUE(fs::is_directory(home_)) << "whatever it holds";
}

TEST_F(CommandToolTest, LeavesTheUsersOwnLinksToFolders) {
  const fs::path kept = folder_.path() / "dotfiles/fish";
  fs::create_directories(kept);
  fs::create_directories(home_ / ".config");
  fs::create_directory_symlink(kept, home_ / ".config/fish");
  EXPECT_TRUE(installTool(look()).empty() && removeTool(look()).empty());
  EXPECT_TRUE(fs::is_symlink(home_ / ".config/fish"));
  EXPECT_TRUE(fs::is_empty(kept));
}

struct Obstacle {
  const char* what;
  std::function<void(const fs::path& home, const fs::path& link)> make;
  LinkState state;
};

TEST_F(CommandToolTest, TouchesNothingThatIsNotItsOwn) {
  const fs::path elsewhere = folder_.path() / "elsewhere/quillet";
  const Obstacle obstacles[] = {
      {"a file", [](auto&, auto& link) { std::ofstream(link) << "mine"; }, LinkState::other},
      {"a folder", [](auto&, auto& link) { fs::create_directory(link); }, LinkState::other},
      {"a link elsewhere", [&](auto&, auto& link) { fs::create_symlink(elsewhere, link); },
       LinkState::other},
      {"a link that leads nowhere",
       [](auto&, auto& link) { fs::create_symlink("/gone/quillet", link); }, LinkState::other},
      {"a link of ours by another way",
       [&](auto& home, auto& link) {
         fs::create_directory_symlink(prefix_, home / "way");
         fs::create_symlink(home / "way/bin/quillet", link);
       },
       LinkState::ours},
      {"a file in the folder's place",
       [](auto&, auto& link) {
         fs::remove(link.parent_path());
         std::ofstream(link.parent_path()) << "mine";
       },
       LinkState::absent},
  };
  for (const Obstacle& obstacle : obstacles) {
    fs::remove_all(home_);
    fs::create_directories(link_.parent_path());
    obstacle.make(home_, link_);
    const auto before = below();
    const CommandTool tool = look();
    EXPECT_EQ(tool.links.front().state, obstacle.state) << obstacle.what;
    const auto failures = installTool(tool);
    EXPECT_EQ(failures.size(), obstacle.state == LinkState::absent ? 1U : 0U) << obstacle.what;
    EXPECT_EQ(below().size(), before.size() + 4) << "the others are made: " << obstacle.what;
    EXPECT_TRUE(removeTool(look()).empty()) << obstacle.what;
    if (obstacle.state != LinkState::ours) EXPECT_EQ(below(), before) << obstacle.what;
  }
}

TEST_F(CommandToolTest, SaysWhatTheCommandStarts) {
  const auto folder = [&](const char* name) { return (folder_.path() / name).string(); };
  const CommandTool ours = look(folder("prefix/bin") + ':' + folder("elsewhere"));
  EXPECT_TRUE(ours.isFoundOurs);
  const CommandTool other = look(folder("elsewhere") + ':' + folder("prefix/bin"));
  EXPECT_EQ(other.found, folder_.path() / "elsewhere/quillet");
  EXPECT_FALSE(other.isFoundOurs || other.isFolderSearched);
  EXPECT_FALSE(look(folder("home")).found);
  // One that lies in the user's own folders is no link to itself.
  write("home/.local/bin/quillet");
  EXPECT_TRUE(
      lookAtTool({link_, home_, home_ / ".local/share", home_ / ".config", ""}).links.empty());
}

TEST_F(CommandToolTest, SaysWhatAFolderDoesNotAllow) {
  if (::geteuid() == 0) GTEST_SKIP() << "who may do everything is refused nothing";
  fs::permissions(home_, fs::perms::owner_read | fs::perms::owner_exec);
  EXPECT_EQ(installTool(look()).size(), 5U);
  fs::permissions(home_, fs::perms::owner_all);
}

}  // namespace
}  // namespace quillet
