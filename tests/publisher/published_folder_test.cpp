// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "publisher/published_folder.h"

#include <gtest/gtest.h>

#include <fstream>
#include <stdexcept>
#include <system_error>

#include "support/message_of.h"
#include "support/temporary_folder.h"

namespace quillet {
namespace {

namespace fs = std::filesystem;

/// No other process publishes where these tests do.
void busy() { throw std::logic_error("somebody else publishes"); }

class PublishedFolderTest : public testing::Test {
 protected:
  const TemporaryFolder own;
  const fs::path folder = own.path();
};

TEST_F(PublishedFolderTest, LeavesFilesAloneThatAreTheSame) {
  const PublishedFolder published(folder / "a" / "b", busy);
  const fs::path file = folder / "a" / "b" / "x.json";
  EXPECT_EQ(published.put({"x.json", "one"}), Publication::changed);
  const fs::file_time_type longAgo = fs::last_write_time(file) - std::chrono::hours(1);
  fs::last_write_time(file, longAgo);
  EXPECT_EQ(published.put({"x.json", "one"}), Publication::unchanged);
  EXPECT_EQ(fs::last_write_time(file), longAgo);
  EXPECT_EQ(published.put({"x.json", "two"}), Publication::changed);
  EXPECT_EQ(contentOf(file), "two");
}

TEST_F(PublishedFolderTest, ReplacesWithoutTouchingWhatAReaderHasOpen) {
  const PublishedFolder published(folder, busy);
  (void)published.put({"x.json", "old"});
  std::ofstream(folder / ".x.json.new") << "what a killed publisher left, and longer";
  std::ifstream reader(folder / "x.json");
  EXPECT_EQ(published.put({"x.json", "new"}), Publication::changed);
  std::string old;
  reader >> old;
  EXPECT_EQ(old, "old");
  EXPECT_EQ(contentOf(folder / "x.json"), "new");
  EXPECT_EQ(std::distance(fs::directory_iterator(folder), {}), 1) << "nothing else is left";
}

TEST_F(PublishedFolderTest, SaysWhereItCannotWrite) {
  const std::string said =
      messageOf<std::system_error>([] { PublishedFolder("/dev/null/below", busy); });
  EXPECT_NE(said.find("/dev/null"), std::string::npos) << said;
}

}  // namespace
}  // namespace quillet
