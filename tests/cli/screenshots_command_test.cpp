// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "cli/online/screenshots_command.h"

#include "support/command_line_test.h"
#include "support/shell.h"

namespace quillet {
namespace {

class ScreenshotsCommandTest : public CommandLineTest {
 protected:
  void lookUp(std::string_view record) {
    http.answer("https://store.example/lookup?id=7&country=us", 200, answer({record}));
  }
  void answerPage(std::string_view items) {
    http.answer("https://web.example/us/app/id7", 200,
                fmt::format("<script id=\"serialized-server-data\">{{\"data\":{{\"data\":"
                            "{{\"shelfMapping\":{{\"product_media_mac\":{{\"items\":[{}]}}}}}}}}}}"
                            "</script>",
                            items));
  }
};

constexpr std::string_view kMac =
    R"({"trackId":7,"trackName":"Amber Notes","kind":"mac-software"})";
constexpr std::string_view kIOS = R"({"trackId":7,"trackName":"Birch: Été №1","kind":"software",
  "screenshotUrls":["https://pic.example/a/392x696bb.png","https://pic.example/source.png"],
  "ipadScreenshotUrls":["https://pic.example/p/552x414bb.jpg"]})";

TEST_F(ScreenshotsCommandTest, NamesAndNumbersThem) {
  lookUp(kIOS);
  EXPECT_EQ(printed({"screenshots", "7"}),
            "curl -sL https://pic.example/a/9999x9999bb.jpg -o 'birch--été--1-iphone-01.jpg'\n"
            "curl -sL https://pic.example/source.png -o 'birch--été--1-iphone-02.jpg'\n"
            "# 2 screenshots for Birch: Été №1 in the us storefront.\n");
  lookUp(kIOS);
  EXPECT_EQ(json({"screenshots", "7", "-p", "ipad"}),
            flattened(R"({"count": 1,"country": "us","macApp": false,
      "name": "Birch: Été №1","otherPlatforms": ["iphone"],"platform": "ipad","screenshots": [{
      "filename": "birch--été--1-ipad-01.jpg","index": 1,
      "url": "https://pic.example/p/9999x9999bb.jpg"}],"source": "search-api","trackId": 7})"));
}

TEST_F(ScreenshotsCommandTest, ReadsThePageOfAMacAppThatListsNone) {
  lookUp(kMac);
  answerPage(R"({"screenshot":{"template":"https://pic.example/m/{w}x{h}{c}.{f}"}})");
  EXPECT_EQ(printed({"screenshots", "7"}),
            "curl -sL https://pic.example/m/9999x9999bb.jpg -o amber-notes-mac-01.jpg\n"
            "# 1 screenshots for Amber Notes in the us storefront.\n"
            "# Read from the App Store page: Apple's search API listed none for this app.\n");
  EXPECT_EQ(http.requests().size(), 2U);
}

TEST_F(ScreenshotsCommandTest, SaysWhereElseThereAreSome) {
  lookUp(kIOS);
  answerPage("");
  EXPECT_EQ(printed({"screenshots", "7", "-p", "mac"}, 1),
            "Apple publishes no Mac screenshots for this app.\n"
            "It has some for: iphone, ipad. Try --platform iphone.\n");
  lookUp(kMac);
  EXPECT_EQ(printed({"screenshots", "7", "-p", "iphone"}, 1),
            "Apple publishes no iPhone screenshots for this app.\n"
            "This ID is the Mac app. An iPhone version, if there is one, has its own ID: quillet "
            "search \"Amber Notes\" --platform iphone\n");
  EXPECT_EQ(http.requests().size(), 3U);
}

TEST_F(ScreenshotsCommandTest, SaysThatAPageCannotBeRead) {
  lookUp(kMac);
  http.answer("https://web.example/us/app/id7", 200, "<html></html>");
  EXPECT_EQ(said({"screenshots", "7"}, 3),
            "quillet: The App Store page for Amber Notes could not be read for screenshots. Apple "
            "may have changed its layout.\n"
            "  try: Open the App Store page to see them.\n");
}

TEST_F(ScreenshotsCommandTest, PastesIntoAShellWhateverTheStoreSends) {
  const char* names[] = {"$(echo RUN)", "`echo RUN`",      "'; echo RUN; '", "\\\"; echo RUN #",
                         "-rf *",       "a\\nb\\u001b[2J", "!!; echo RUN",   "~/$HOME"};
  const char* links[] = {"https://a.example/$(echo${IFS}RUN)", "https://a.example/`echo`;RUN",
                         "https://a.example/';echo';'|x&", "https://a.example/[1-9]{a,b}",
                         "https://a.example/\\\\$HOME#!!"};
  for (const char* name : names) {
    for (const char* link : links) {
      lookUp(fmt::format(R"({{"trackId":7,"trackName":"{}","kind":"mac-software",)"
                         R"("screenshotUrls":["{}"]}})",
                         name, link));
      const std::string text = printed({"screenshots", "7"});
      for (const char* shell : {"sh", "bash"}) {
        const std::string output =
            shellOutput(shell, "cd /; curl() { printf '<%s>' \"$@\"; }\n" + text);
        EXPECT_TRUE(output.starts_with("<-sL><https://a.example/")) << output;
        EXPECT_TRUE(output.ends_with("-mac-01.jpg>")) << output;
        EXPECT_EQ(std::count(output.begin(), output.end(), '<'), 4) << output;
      }
    }
  }
}

}  // namespace
}  // namespace quillet
