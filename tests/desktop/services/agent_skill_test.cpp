// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/services/agent_skill.h"

#include <gtest/gtest.h>

#include <functional>

#include "base/errors.h"
#include "support/temporary_folder.h"

namespace quillet {
namespace {

namespace fs = std::filesystem;

class AgentSkillTest : public testing::Test {
 protected:
  AgentSkillTest() {
    for (const char* each : {".wren/skills", ".config/otter/skills", "visible/skills", ".empty"})
      fs::create_directories(home() / each);
  }
  [[nodiscard]] const fs::path& home() const { return folder_.path(); }
  [[nodiscard]] SkillTarget wren() const { return skillIn(home() / ".wren/skills", skill_); }
  void put(const std::string& text) const {
    fs::create_directories(wren().file.parent_path());
    std::ofstream(wren().file) << text;
  }

  TemporaryFolder folder_;
  const std::string skill_ = stampedSkill("# Quillet\nAsk.\n", "1.1");
};

TEST_F(AgentSkillTest, FindsTheAgentsThatHaveAFolderOfSkills) {
  std::vector<std::string> agents;
  for (const SkillTarget& each : skillTargets(home(), skill_)) agents.push_back(each.agent);
  EXPECT_EQ(agents, (std::vector<std::string>{"otter", "wren"}));
}

TEST_F(AgentSkillTest, IsWrittenRenewedAndRemovedWithoutATrace) {
  EXPECT_EQ(wren().state, SkillState::absent);
  put(stampedSkill("# Quillet\nAsk it.\n", "1.0"));
  EXPECT_EQ(wren().state, SkillState::outdated);
  put(stampedSkill("# Quillet\nAsk it.\n", "1.10"));
  EXPECT_EQ(wren().state, SkillState::newer);
  writeSkill(wren(), skill_);
  EXPECT_EQ(contentOf(wren().file), skill_);
  EXPECT_EQ(wren().state, SkillState::current);
  removeSkill(wren());
  EXPECT_TRUE(fs::is_empty(home() / ".wren/skills"));
}

TEST_F(AgentSkillTest, KeepsWhatSomebodyChanged) {
  const std::string changes[] = {"mine", skill_ + "more\n", "more\n" + skill_,
                                 std::string(300'000, 'x')};
  for (const std::string& change : changes) {
    put(change);
    EXPECT_EQ(wren().state, SkillState::changed);
    EXPECT_THROW(removeSkill(wren()), FileError);
    EXPECT_EQ(contentOf(wren().file), change);
  }
  EXPECT_THROW(writeSkill(wren(), skill_), FileError) << "nobody saw what would go";
  put("mine");
  const SkillTarget seen = wren();
  put("changed since it was shown");
  EXPECT_THROW(writeSkill(seen, skill_), FileError);
  fs::remove_all(wren().file.parent_path());
  fs::create_directories(wren().file);
  EXPECT_EQ(wren().state, SkillState::changed) << "a folder in the file's place";
  EXPECT_THROW(writeSkill(wren(), skill_), FileError);
  put("beside");
  fs::remove_all(wren().file.parent_path());
  std::ofstream(wren().file.parent_path()) << "a file in the folder's place";
  EXPECT_THROW(writeSkill(wren(), skill_), FileError);
}

TEST_F(AgentSkillTest, FollowsNoLinkOutOfTheFolder) {
  const fs::path kept = home() / "kept";
  fs::create_directories(kept);
  const std::string old = stampedSkill("# Quillet\n", "1.0");
  const fs::path ours = wren().file.parent_path();
  const std::function<void()> links[] = {
      [&] { fs::create_directory_symlink(kept, ours); },
      [&] {
        fs::create_directories(ours);
        fs::create_symlink(kept / "SKILL.md", ours / "SKILL.md");
      },
  };
  for (const auto& link : links) {
    fs::remove_all(ours);
    std::ofstream(kept / "SKILL.md") << old;
    link();
    EXPECT_THROW(writeSkill(wren(), skill_), FileError);
    EXPECT_THROW(removeSkill(wren()), FileError);
    EXPECT_EQ(contentOf(kept / "SKILL.md"), old);
    fs::remove(kept / "SKILL.md");
    EXPECT_THROW(writeSkill(wren(), skill_), FileError) << "nor where it leads nowhere";
    EXPECT_TRUE(fs::is_empty(kept));
  }
}

TEST_F(AgentSkillTest, TellsWhatWouldChange) {
  EXPECT_EQ(differenceOf("a\nb\nc\n", "a\nx\nc\nd\n"), "  a\n- b\n+ x\n  c\n+ d\n");
  EXPECT_EQ(differenceOf("a\nb\nc\nx\nd\n", "a\nc\ny\nb\nd\n"),
            "  a\n- b\n  c\n- x\n+ y\n+ b\n  d\n");
  EXPECT_EQ(differenceOf("a\na\n", "a\n"), "  a\n- a\n");
  EXPECT_EQ(differenceOf("", "a"), "+ a\n");
  EXPECT_EQ(differenceOf("a", ""), "- a\n");
  const std::string empty(20'000, '\n');
  std::string many;
  for (int i = 0; i < 20'000; ++i) many += std::to_string(i) + '\n';
  EXPECT_EQ(differenceOf(empty, many).size(), 5 * empty.size() + many.size())
      << "in no table of all their pairs";
}

}  // namespace
}  // namespace quillet
