// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "sandbox/pictures.h"

#include <gtest/gtest.h>

#include <QImage>
#include <regex>
#include <set>

#include "sample_answers.h"
#include "sandbox/drawing/icon_design.h"
#include "sandbox/drawing/path_reader.h"

namespace quillet::sandbox {
namespace {

constexpr std::string_view kHost = "http://127.0.0.1:8080";
constexpr std::int64_t kQuillink = 1480068668;  // for Mac, iPhone and iPad
constexpr std::int64_t kInkfallow = 824183456;

Answer pictureAt(const std::string& url) { return answered(url.substr(kHost.size())); }

Answer picture(const PictureName& name, std::string_view lastPart) {
  return pictureAt(pictureUrl(kHost, name, lastPart));
}

std::pair<int, int> sizeOf(const Answer& answer) {
  EXPECT_EQ(answer.contentType, "image/png");
  const QImage image = QImage::fromData(reinterpret_cast<const uchar*>(answer.body.data()),
                                        static_cast<int>(answer.body.size()), "PNG");
  return {image.width(), image.height()};
}

TEST(Pictures, FillTheAskedSizeAsFarAsTheyDo) {
  const std::tuple<const char*, PictureName, const char*, std::pair<int, int>> cases[] = {
      {"an icon", {kQuillink}, "100x100bb.jpg", {100, 100}},
      {"under another name", {kQuillink}, "64x64bb.webp", {64, 64}},
      {"the smallest", {kQuillink}, "1x1bb.jpg", {1, 1}},
      {"stays square", {kQuillink}, "300x100bb.jpg", {100, 100}},
      {"at most", {kQuillink}, "9999x9999bb.jpg", {1024, 1024}},
      {"Mac", {kQuillink, Picture::macScreenshot}, "800x500bb.jpg", {800, 500}},
      {"Mac, in a square", {kQuillink, Picture::macScreenshot, 1}, "512x512bb.jpg", {512, 320}},
      {"Mac, whole", {kQuillink, Picture::macScreenshot}, "9999x9999bb.jpg", {1024, 640}},
      {"iPhone", {kQuillink, Picture::iphoneScreenshot}, "392x696bb.png", {321, 696}},
      {"iPad", {kQuillink, Picture::ipadScreenshot}, "552x414bb.jpg", {552, 414}},
  };
  for (const auto& [situation, name, lastPart, expected] : cases)
    EXPECT_EQ(sizeOf(picture(name, lastPart)), expected) << situation;
}

TEST(Pictures, AreNotThereUnderWrongAddresses) {
  const std::string icon = pictureUrl(kHost, {kQuillink}, "");
  std::string changed = icon;
  changed[changed.find("/v4/") + 4] = changed[changed.find("/v4/") + 4] == '0' ? '1' : '0';
  const std::pair<const char*, std::string> cases[] = {
      {"unknown app", pictureUrl(kHost, {kQuillink + 1}, "64x64bb.jpg")},
      {"icons have no numbers", pictureUrl(kHost, {kQuillink, Picture::icon, 1}, "64x64bb.jpg")},
      {"one too many",
       pictureUrl(kHost, {kQuillink, Picture::macScreenshot, sampleApp(kQuillink).screenshots.mac},
                  "64x64bb.jpg")},
      {"not for iPhone", pictureUrl(kHost, {kInkfallow, Picture::iphoneScreenshot}, "64x64bb.jpg")},
      {"unknown story", pictureUrl(kHost, {kQuillink, Picture::story}, "64x64bb.jpg")},
      {"another mark", changed + "64x64bb.jpg"},
      {"no width", icon + "0x64bb.jpg"},
      {"no size", icon + "large.jpg"},
      {"huge size", icon + "99999999999x64bb.jpg"},
      {"nothing", icon},
      {"further parts", icon + "64x64bb.jpg/x"},
      {"another place", std::string(kHost) + "/image/thumb/64x64bb.jpg"},
  };
  for (const auto& [situation, url] : cases) EXPECT_EQ(pictureAt(url).status, 404) << situation;
}

/// All addresses of pictures in an answer, up to the size.
std::vector<std::string> addressesIn(const std::string& body) {
  static const std::regex kAddress(R"(https?:[^"]*/image/thumb/[^"]*/)");
  std::vector<std::string> addresses;
  for (std::sregex_iterator each(body.begin(), body.end(), kAddress), end; each != end; ++each)
    addresses.push_back(each->str());
  return addresses;
}

TEST(Pictures, EveryServiceNamesThemAtItsHost) {
  const std::string story = std::to_string(kQuillink + 20'000);
  const std::string bundle = std::to_string(998812345 + 30'000);
  const std::pair<std::string, std::size_t> cases[] = {
      {"/lookup?id=1480068668", 3},
      {"/search?term=markdown&entity=macSoftware", 10},
      {"/us/rss/topfreemacapps/limit=5/json", 15},
      {"/us/app/id1480068668", 3},
      {"/api/apps/v1/catalog/us/apps/1480068668?platform=mac", 1},
      {"/api/apps/v1/catalog/jp/app-bundles?ids=" + bundle + "&platform=mac", 1},
      {"/api/apps/v1/editorial/us/editorial-items?ids=" + story + "&platform=mac", 1},
  };
  for (const auto& [target, least] : cases) {
    Request request = requestFor(target);
    request.userAgent = "Mozilla/5.0 (Macintosh)";
    request.pictureHost = kHost;
    const auto addresses = addressesIn(answerTo(sampleStore(), request).body);
    EXPECT_GE(addresses.size(), least) << target;
    for (const std::string& address : addresses) {
      ASSERT_TRUE(address.starts_with(kHost)) << address;
      EXPECT_EQ(pictureAt(address + "8x8bb.jpg").status, 200) << address;
    }
  }
}

TEST(Pictures, AreTheSameEachTimeAndDifferByApp) {
  const std::string_view small = "48x48bb.jpg";
  EXPECT_EQ(picture({kQuillink}, small).body, picture({kQuillink}, small).body);
  std::set<std::string> icons;
  for (AppNumber number = 0; number < 58; ++number)
    icons.insert(picture({sampleStore().sketch(number).id}, small).body);
  EXPECT_EQ(icons.size(), 58U) << "those written by hand have icons of their own";
  const auto shot = [&](int number) {
    return picture({kQuillink, Picture::macScreenshot, number}, small).body;
  };
  EXPECT_NE(shot(0), shot(1));
}

/// Tables name motifs and palettes; a name that is none throws.
TEST(IconDesign, EveryAppHasOne) {
  const SampleStore store({.apps = 6000, .today = kSampleDay});
  for (AppNumber number = 0; number < store.size(); ++number) {
    const AppSketch app = store.sketch(number);
    EXPECT_NO_THROW((void)designOf({.key = static_cast<std::uint64_t>(number) * 0x9E3779B97F4A7C15U,
                                    .name = app.name,
                                    .about = app.tagline,
                                    .genre = app.genres.front()}))
        << app.name;
  }
}

TEST(PathReader, ReadsArcsAndItsOwnShapes) {
  const std::tuple<const char*, const char*, QRectF> cases[] = {
      {"line", "M10 20L30 20V50H10Z", {10, 20, 20, 30}},
      {"clockwise half", "M22 50A28 28 0 0 1 78 50", {22, 22, 56, 28}},
      {"the other half", "M22 50A28 28 0 0 0 78 50", {22, 50, 56, 28}},
      {"small arc", "M50 22A28 28 0 0 1 78 50", {50, 22, 28, 28}},
      {"large arc", "M50 22A28 28 0 1 0 78 50", {22, 22, 56, 56}},
      {"ellipse", "M12 50A38 12 0 0 1 88 50", {12, 38, 76, 12}},
      {"radius too small", "M20 50A1 1 0 0 1 80 50", {20, 20, 60, 30}},
      {"own shapes", "O50 50 10 E50 50 20 5 R45 30 10 5 2", {30, 30, 40, 30}},
      {"up to what is wrong", "M10 20L30 40L50 x", {10, 20, 20, 20}},
      {"nothing", "?", {}},
  };
  for (const auto& [situation, text, expected] : cases) {
    const QRectF bounds = outlineOf(text).boundingRect();
    EXPECT_NEAR(bounds.left(), expected.left(), .05) << situation;
    EXPECT_NEAR(bounds.top(), expected.top(), .05) << situation;
    EXPECT_NEAR(bounds.width(), expected.width(), .05) << situation;
    EXPECT_NEAR(bounds.height(), expected.height(), .05) << situation;
  }
}

}  // namespace
}  // namespace quillet::sandbox
