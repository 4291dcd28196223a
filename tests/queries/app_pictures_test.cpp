// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "queries/app_pictures.h"

#include "query_test.h"
#include "store/records/embedded_document.h"

namespace quillet {
namespace {

using Words = std::vector<std::string>;
using Platforms = std::vector<Platform>;

const std::string kPhone = "https://pic.example/phone.png";
const std::string kPad = "https://pic.example/pad.png";
const std::string kDesk = "https://pic.example/desk.png";

class AppPicturesTest : public QueryTest {
 protected:
  /// With a page in the store that shows `pictures`.
  void answerPage(std::string_view pictures) {
    http.answer("https://web.example/us/app/id7", 200,
                fmt::format(R"(<script id="serialized-server-data">{{"data":{{"data":{{
                  "shelfMapping":{{"product_media_mac":{{"items":[{}]}}}}}}}}}}</script>)",
                            pictures));
  }
  AppPictures read(const ITunesApp& app, Platform platform) {
    return runVirtual(clock, readAppPictures(app, platform, "us", services(), call()));
  }
  static ITunesApp app(const char* kind) {
    ITunesApp app;
    app.trackId = 7;
    app.kind = kind;
    return app;
  }
};

TEST_F(AppPicturesTest, TakesWhatTheRecordListsForThePlatform) {
  ITunesApp mobile = app("software");
  mobile.screenshotUrls = Words{kPhone};
  mobile.ipadScreenshotUrls = Words{kPad};
  ITunesApp padOnly = app("software");
  padOnly.ipadScreenshotUrls = Words{kPad};
  ITunesApp mac = app("mac-software");
  mac.screenshotUrls = Words{kDesk};
  const std::tuple<ITunesApp, Platform, Words, Platforms> rows[] = {
      {mobile, Platform::iphone, {kPhone}, {Platform::ipad}},
      {mobile, Platform::ipad, {kPad}, {Platform::iphone}},
      {padOnly, Platform::iphone, {kPad}, {Platform::ipad}},
      {mac, Platform::mac, {kDesk}, {}},
      {mac, Platform::ipad, {}, {Platform::mac}},
  };
  for (const auto& [record, platform, addresses, others] : rows) {
    const AppPictures pictures = read(record, platform);
    EXPECT_EQ(pictures.addresses, addresses);
    EXPECT_EQ(pictures.otherPlatforms, others);
    EXPECT_EQ(pictures.source, PictureSource::searchService);
  }
}

TEST_F(AppPicturesTest, ReadsThePageOfAMacAppThatListsNone) {
  answerPage(R"({"screenshot":{"template":"https://pic.example/m/{w}x{h}{c}.{f}"}})");
  const AppPictures found = read(app("mac-software"), Platform::mac);
  EXPECT_EQ(found.addresses.size(), 1U);
  EXPECT_EQ(found.source, PictureSource::storePage);
  pages.forget(7, "us");
  answerPage("");
  EXPECT_EQ(read(app("mac-software"), Platform::mac).source, PictureSource::searchService);
  pages.forget(7, "us");
  http.answer("https://web.example/us/app/id7", 200, "<html></html>");
  EXPECT_THROW(read(app("mac-software"), Platform::mac), UnreadablePage);
}

}  // namespace
}  // namespace quillet
