// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "support/command_line_test.h"

namespace quillet {
namespace {

constexpr std::string_view kMacApp = R"({"trackId":11,"trackName":"Amber\u0007 Notes",
  "kind":"mac-software","sellerName":"Noor Amberfield",
  "currentVersionReleaseDate":"2026-03-01T08:30:00Z"})";
constexpr std::string_view kHistory = R"({"data":[{"attributes":{"deviceFamilies":["mac"],
  "versionHistory":[
    {"versionDisplay":" 2.1","releaseDate":"2026-11-02T12:00:00Z","releaseNotes":"Faster.\nMore."},
    {"versionDisplay":"2.0","releaseDate":"2026-10-20T23:00:00Z"},
    {"releaseDate":"2024-10-19T00:00:00Z","releaseNotes":"First."}]}}]})";

class VersionsCommandTest : public CommandLineTest {
 protected:
  VersionsCommandTest() { clock.setNow(*parseInternetDate("2026-11-21T11:00:00Z")); }

  void answerApp(std::string_view platform, std::string history) {
    answerLookup("11", {kMacApp});
    http.answer(enrichment(11, platform), 200, std::move(history));
  }
};

TEST_F(VersionsCommandTest, ListsTheReleasesWithTheirGaps) {
  answerApp("mac", std::string(kHistory));
  io.style.width = 80;
  EXPECT_EQ(printed({"versions", " 11 ", "-n", "2"}), R"(Amber Notes  Noor Amberfield
Releases for Mac, us storefront

Maintenance   Actively updated (2 updates in the last year)
Last release  18 days ago (2026-11-02)
Usual gap     372 days between releases
Releases      3

Version  Released       After  Notes
2.1      2026-11-02   13 days  Faster.
2.0      2026-10-20  731 days
… and 1 earlier; --limit shows more
)");
}

TEST_F(VersionsCommandTest, JudgesByTheRecordAndTheThresholdsWhereThereIsNoHistory) {
  answerApp("mac", R"({"data":[]})");
  maintenance = {3, 5, 8};
  EXPECT_EQ(printed("versions 11"),
            "Amber Notes  Noor Amberfield\nReleases for Mac, us storefront\n\n"
            "Maintenance   Likely abandoned (No update in over 8 months)\n"
            "Last release  265 days ago (2026-03-01)\nReleases      0\n");
}

TEST_F(VersionsCommandTest, SaysNothingOfABuildThatThereIsNot) {
  answerApp("ipad", std::string(kHistory));
  EXPECT_EQ(said("versions 11 -p iphone", 0),
            "quillet: the store describes no iPhone build of this app.\n");
  EXPECT_TRUE(says("Maintenance   Update history unavailable\nReleases      0\n"));
}

TEST_F(VersionsCommandTest, KnowsTheStoresLimit) {
  const std::vector<std::string_view> entries(25, R"({"releaseDate":"2026-11-20T00:00:00Z"})");
  answerApp("mac", fmt::format(R"({{"data":[{{"attributes":{{"versionHistory":[{}]}}}}]}})",
                               fmt::join(entries, ",")));
  printed("versions 11 -n 1");
  EXPECT_TRUE(
      says("(25+ updates in the last year)\n"
           "Last release  1 day ago (2026-11-20)\n"
           "Usual gap     0 days between releases\n"
           "Releases      25 returned (Apple's limit; older ones exist)\n"));
}

}  // namespace
}  // namespace quillet
