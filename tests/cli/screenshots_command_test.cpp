// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "support/command_line_test.h"
#include "support/shell.h"

namespace quillet {
namespace {

constexpr const char* kPage = "https://web.example/us/app/id7";
constexpr std::string_view kMac =
    R"({"trackId":7,"trackName":"Amber Notes","kind":"mac-software"})";
constexpr std::string_view kIOS = R"({"trackId":7,"trackName":"Birch: Été №1","kind":"software",
  "screenshotUrls":["https://pic.example/a/392x696bb.png","https://pic.example/source.png"],
  "ipadScreenshotUrls":["https://pic.example/p/552x414bb.jpg"]})";

class ScreenshotsCommandTest : public CommandLineTest {
 protected:
  void answerPage(std::string_view items) {
    http.answer(kPage, 200,
                fmt::format(R"(<script id="serialized-server-data">{{"data":{{"data":{{
                  "shelfMapping":{{"product_media_mac":{{"items":[{}]}}}}}}}}}}</script>)",
                            items));
  }
};

TEST_F(ScreenshotsCommandTest, NamesAndNumbersThem) {
  answerLookup("7", {kIOS});
  EXPECT_EQ(printed("screenshots 7"),
            "curl -sL https://pic.example/a/9999x9999bb.jpg -o 'birch--été--1-iphone-01.jpg'\n"
            "curl -sL https://pic.example/source.png -o 'birch--été--1-iphone-02.jpg'\n"
            "# 2 screenshots for Birch: Été №1 in the us storefront.\n");
  answerLookup("7", {kIOS});
  EXPECT_TRUE(printed("screenshots 7 -p ipad")
                  .starts_with("curl -sL https://pic.example/p/9999x9999bb.jpg -o "
                               "'birch--été--1-ipad-01.jpg'\n"));
}

TEST_F(ScreenshotsCommandTest, ReadsThePageOfAMacAppThatListsNone) {
  answerLookup("7", {kMac});
  answerPage(R"({"screenshot":{"template":"https://pic.example/m/{w}x{h}{c}.{f}"}})");
  EXPECT_EQ(printed("screenshots 7"),
            "curl -sL https://pic.example/m/9999x9999bb.jpg -o amber-notes-mac-01.jpg\n"
            "# 1 screenshots for Amber Notes in the us storefront.\n"
            "# Read from the App Store page: Apple's search API listed none for this app.\n");
  answerLookup("7", {kMac});
  http.answer(kPage, 200, "<html></html>");
  EXPECT_EQ(said("screenshots 7", 3),
            "quillet: The App Store page for Amber Notes could not be read for screenshots. Apple "
            "may have changed its layout.\n"
            "  try: Open the App Store page to see them.\n");
}

TEST_F(ScreenshotsCommandTest, SaysWhereElseThereAreSome) {
  answerLookup("7", {kIOS});
  answerPage("");
  EXPECT_EQ(printed("screenshots 7 -p mac", 1),
            "Apple publishes no Mac screenshots for this app.\n"
            "It has some for: iphone, ipad. Try --platform iphone.\n");
  answerLookup("7", {kMac});
  EXPECT_EQ(printed("screenshots 7 -p iphone", 1),
            "Apple publishes no iPhone screenshots for this app.\n"
            "This ID is the Mac app. An iPhone version, if there is one, has its own ID: quillet "
            "search \"Amber Notes\" --platform iphone\n");
}

TEST_F(ScreenshotsCommandTest, PastesIntoAShellWhateverTheStoreSends) {
  const char* names[] = {"$(echo RUN)", "`echo RUN`",      "'; echo RUN; '", "\\\"; echo RUN #",
                         "-rf *",       "a\\nb\\u001b[2J", "!!; echo RUN",   "~/$HOME"};
  const char* links[] = {"https://a.example/$(echo${IFS}RUN)", "https://a.example/`echo`;RUN",
                         "https://a.example/';echo';'|x&", "https://a.example/[1-9]{a,b}",
                         "https://a.example/\\\\$HOME#!!"};
  for (const char* name : names) {
    for (const char* link : links) {
      answerLookup("7", {fmt::format(R"({{"trackId":7,"trackName":"{}","kind":"mac-software",)"
                                     R"("screenshotUrls":["{}"]}})",
                                     name, link)});
      const std::string text = printed("screenshots 7");
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
