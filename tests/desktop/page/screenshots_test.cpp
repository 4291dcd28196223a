// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include <QAbstractButton>
#include <QApplication>
#include <QBuffer>
#include <QClipboard>
#include <QLabel>
#include <QTest>

#include "desktop/look/quillet_style.h"
#include "desktop/page/block_table.h"
#include "desktop/page/picture_canvas.h"
#include "desktop/page/picture_strip.h"
#include "desktop/page/screenshot_viewer.h"
#include "desktop/support/view_parts.h"
#include "net/run_task.h"
#include "queries/query_test.h"
#include "support/memory_settings.h"
#include "support/pictures.h"
#include "support/temporary_folder.h"

namespace quillet {
namespace {

using namespace Qt::Literals::StringLiterals;

std::string pictureBytes(const QSize& size, const char* format = "PNG") {
  QImage image(size, QImage::Format_RGB32);
  image.fill(QColor(0x2F, 0xA0, 0x8C));
  QBuffer buffer;
  buffer.open(QIODevice::WriteOnly);
  image.save(&buffer, format);
  return buffer.data().toStdString();
}

std::string address(int number, std::string_view size = "800x500bb.png") {
  return fmt::format("https://pic.example/{}/{}", number, size);
}
std::string inStrip(int number) { return address(number, "512x512bb.png"); }
std::string inFilm(int number) { return address(number, "128x128bb.png"); }
std::string original(int number) { return address(number, "9999x9999bb.jpg"); }

std::vector<std::string> addresses(int count) {
  std::vector<std::string> list;
  for (int i = 1; i <= count; ++i) list.push_back(address(i));
  return list;
}

/// A Mac app whose record lists so many pictures.
PageFacts facts(int pictures, std::int64_t app = 7) {
  PageFacts known{.app = {app, "us"}};
  known.cached = CachedApp{.trackId = app,
                           .country = "us",
                           .name = "Pagewren Markdown",
                           .kind = "mac-software",
                           .screenshotUrls = addresses(pictures)};
  return known;
}

class ScreenshotsTest : public QueryTest {
 protected:
  void TearDown() override {
    stop.requestStop();
    block_.reset();
    waitFor([this] { return parts_.images.isIdle(); });
    runTask(parts_.store.ended());
  }

  void open(int width = 540) {
    parts_.store.use(services(), stop.token());
    const PageWorld world{parts_.world(), std::make_shared<const LocaleFormats>(UserLocale{})};
    block_.reset(makeScreenshotsBlock(u"Screenshots"_s, world));
    block_->resize(width, 300);
  }
  void show(const PageFacts& known) {
    ASSERT_TRUE(block_->fill(known));
    block_->setVisible(true);
    settle();
  }
  /// What is to be seen is asked for as it is painted.
  void settle() {
    do {
      handlePendingEvents();
      block_->grab();
      if (QWidget* film = viewer()) film->grab();
      handlePendingEvents();
    } while (!parts_.images.isIdle());
  }

  PictureStrip& strip() { return *block_->findChild<PictureStrip*>(); }
  void press(int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
    QTest::keyClick(&strip(), static_cast<Qt::Key>(key), modifiers);
    settle();
  }

  static ScreenshotViewer* viewer() {
    for (QWidget* window : QApplication::topLevelWidgets()) {
      auto* viewer = qobject_cast<ScreenshotViewer*>(window);
      if (viewer != nullptr && viewer->isVisible()) return viewer;
    }
    return nullptr;
  }
  static PictureCanvas& canvas() { return *viewer()->findChild<PictureCanvas*>(); }
  static void pressInViewer(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
    QTest::keyClick(&canvas(), key, modifiers);
  }
  static QAbstractButton& button(const QWidget& widget, const QString& text) {
    for (QAbstractButton* each : widget.findChildren<QAbstractButton*>())
      if (each->text() == text && each->isVisible()) return *each;
    throw std::invalid_argument("no such button: " + text.toStdString());
  }
  static bool says(const QWidget& widget, const QString& text) {
    const auto labels = widget.findChildren<QLabel*>();
    return std::ranges::any_of(labels, [&](const QLabel* label) {
      return label->isVisible() && label->text().contains(text);
    });
  }
  static bool canCopy() { return button(*viewer(), u"Copy Image"_s).isEnabled(); }

  /// The viewer over so many pictures, each of `bytes`, at the first of them.
  void openViewer(int count, const std::string& bytes) {
    for (int i = 1; i <= count; ++i) {
      if (i <= 3) http.answer(inStrip(i), 200, pictureBytes({512, 320}));
      http.answer(inFilm(i), 200, pictureBytes({128, 80}));
    }
    http.answer(original(1), 200, bytes);
    open();
    show(facts(count));
    press(Qt::Key_Return);
    waitFor([] { return canCopy() || says(*viewer(), u"could not be read"_s); });
  }

  MemorySettings settings_;
  ViewParts parts_{http, clock, settings_};
  std::unique_ptr<Block> block_;
};

TEST_F(ScreenshotsTest, TheStripAsksForWhatIsSeenAndItsNeighbours) {
  for (const int seen : {1, 2, 3}) http.answer(inStrip(seen), 200, pictureBytes({512, 320}));
  open();
  show(facts(9));
  EXPECT_EQ(http.requests().size(), 3);
  EXPECT_EQ(strip().accessibleName(), u"Screenshot 1 of 9, Mac"_s);
  for (const int seen : {7, 8, 9}) http.answer(inStrip(seen), 200, pictureBytes({512, 320}));
  press(Qt::Key_End);
  EXPECT_EQ(http.requests().size(), 6);
  EXPECT_EQ(strip().accessibleName(), u"Screenshot 9 of 9, Mac"_s);
  EXPECT_TRUE(says(*block_, u"9 of 9"_s));
}

TEST_F(ScreenshotsTest, WhatIsNoPictureIsATile) {
  http.answer(inStrip(1), 200, "<html>");
  http.fail(inStrip(2), NetworkError(NetworkError::Kind::tooLarge, "endless"));
  open(1120);
  show(facts(2));
  EXPECT_EQ(http.requests().size(), 2);
  EXPECT_FALSE(strip().grab().isNull());
}

std::string pageWith(std::string_view pictures) {
  return fmt::format(R"(<script id="serialized-server-data">{{"data":{{"data":{{
      "shelfMapping":{{"product_media_mac":{{"items":[{}]}}}}}}}}}}</script>)",
                     pictures);
}

TEST_F(ScreenshotsTest, OfAMacAppWithoutPicturesThePageIsReadOnceItIsNear) {
  open();
  show(facts(0));
  EXPECT_TRUE(http.requests().empty());
  http.answer("https://web.example/us/app/id7", 200,
              pageWith(R"({"screenshot":{"template":"https://pic.example/1/{w}x{h}{c}.{f}"}})"));
  http.answer(address(1, "512x512bb.webp"), 200, pictureBytes({512, 320}));
  block_->approach(Freshness::known);
  settle();
  EXPECT_EQ(strip().count(), 1);
  EXPECT_TRUE(says(*block_, u"Read from the App Store page: "_s));

  const auto& asked = http.requests();
  show(facts(0, 8));
  EXPECT_EQ(asked.size(), 2) << "not near yet";
  show(facts(0));
  block_->approach(Freshness::known);
  settle();
  EXPECT_EQ(asked.size(), 2) << "read before";
  EXPECT_EQ(strip().count(), 1);
}

TEST_F(ScreenshotsTest, SaysWhatBecameOfThePage) {
  open();
  show(facts(0));
  http.answer("https://web.example/us/app/id7", 200, "<html>");
  block_->approach(Freshness::known);
  settle();
  EXPECT_TRUE(says(*block_, u"The App Store page for Pagewren Markdown could not be read"_s));
  http.answer("https://web.example/us/app/id7", 200, pageWith(""));
  button(*block_, u"Try Again"_s).click();
  settle();
  EXPECT_TRUE(says(*block_, u"Apple publishes no Mac screenshots for this app."_s));
  EXPECT_FALSE(strip().isVisible());
}

TEST_F(ScreenshotsTest, TabsTellPlatformsApart) {
  PageFacts known = facts(2);
  known.cached->kind = "software";
  known.cached->ipadScreenshotUrls = {address(3, "552x414bb.png")};
  for (const int seen : {1, 2, 3}) http.answer(inStrip(seen), 200, pictureBytes({300, 300}));
  open();
  show(known);
  EXPECT_EQ(strip().accessibleName(), u"Screenshot 1 of 2, iPhone"_s);
  button(*block_, u"iPad"_s).click();
  settle();
  EXPECT_EQ(strip().accessibleName(), u"Screenshot 1 of 1, iPad"_s);
  EXPECT_TRUE(block_->fill(known));
  EXPECT_EQ(strip().accessibleName(), u"Screenshot 1 of 1, iPad"_s) << "as the user chose";
  known.cached->screenshotUrls = {};
  known.cached->ipadScreenshotUrls = {};
  EXPECT_FALSE(block_->fill(known));
}

TEST_F(ScreenshotsTest, TheViewerGoesByKeysAndEndsWhereItWasLooking) {
  openViewer(3, pictureBytes({1600, 1000}));
  EXPECT_EQ(canvas().accessibleName(), u"Screenshot 1 of 3, Mac"_s);
  EXPECT_TRUE(canvas().zoom().isFit());
  pressInViewer(Qt::Key_Z);
  EXPECT_EQ(canvas().zoom().scale(), 1);
  pressInViewer(Qt::Key_Plus, Qt::ControlModifier);
  EXPECT_EQ(canvas().zoom().scale(), 1.5);
  pressInViewer(Qt::Key_C, Qt::ControlModifier);
  EXPECT_EQ(QGuiApplication::clipboard()->image().size(), QSize(1600, 1000));
  for (const int next : {2, 3}) {
    http.answer(original(next), 200, pictureBytes({800, 500}));
    pressInViewer(Qt::Key_Right);
    EXPECT_FALSE(canCopy());
    waitFor(canCopy);
    EXPECT_TRUE(canvas().zoom().isFit());
  }
  pressInViewer(Qt::Key_Right);
  EXPECT_EQ(canvas().accessibleName(), u"Screenshot 3 of 3, Mac"_s);
  QPointer<ScreenshotViewer> closed = viewer();
  pressInViewer(Qt::Key_Escape);
  waitFor([&] { return closed.isNull(); });
  EXPECT_EQ(strip().accessibleName(), u"Screenshot 3 of 3, Mac"_s);
  EXPECT_TRUE(strip().hasFocus());
}

TEST_F(ScreenshotsTest, TheViewerLooksAsItDid) {
  auto& style = *qobject_cast<QuilletStyle*>(QApplication::style());
  style.setPalette(Palette(Scheme::dark, Contrast::normal));
  openViewer(5, pictureBytes({1600, 1000}));
  viewer()->resize(720, 480);
  settle();
  canvas().window()->setAttribute(Qt::WA_KeyboardFocusChange, false);
  EXPECT_TRUE(looksLike(u"screenshot-viewer-dark"_s, viewer()->grab().toImage()));
  viewer()->close();
  style.setPalette(Palette(Scheme::light, Contrast::normal));
}

TEST_F(ScreenshotsTest, TheViewerSaysWhatCannotBeReadAndTriesAgain) {
  openViewer(2, "<html>");
  EXPECT_TRUE(says(*viewer(), u"This screenshot could not be read."_s));
  http.fail(original(1), NetworkError(NetworkError::Kind::tooLarge, "endless"));
  button(*viewer(), u"Try Again"_s).click();
  waitFor([] { return says(*viewer(), u"could not be read"_s); });
  http.answer(original(1), 200, pictureBytes({64, 40}));
  button(*viewer(), u"Try Again"_s).click();
  waitFor(canCopy);
  // Gone before its answer.
  http.hold(original(2));
  pressInViewer(Qt::Key_Right);
  pressInViewer(Qt::Key_Escape);
  handlePendingEvents();
}

TEST_F(ScreenshotsTest, SavesAllAsTheyCameAndReplacesNothing) {
  const TemporaryFolder folder;
  const std::string png = pictureBytes({64, 40});
  const std::string jpeg = pictureBytes({64, 40}, "JPG");
  std::ofstream(folder.path() / "pagewren-markdown-mac-01.png") << "mine";
  std::ofstream(folder.path() / "pagewren-markdown-mac-02.jpg", std::ios::binary) << jpeg;
  openViewer(3, png);
  http.answer(original(1), 200, png);
  http.answer(original(2), 200, jpeg);
  http.answer(original(3), 404, "");
  http.answer(address(3), 404, "");
  parts_.prompts.chosen = folder.path();
  button(*viewer(), u"Save All…"_s).click();
  waitFor([] { return says(*viewer(), u"Saved 2 of 3; the others could not be read."_s); });
  std::map<std::string, std::string> files;
  for (const auto& entry : std::filesystem::directory_iterator(folder.path()))
    files[entry.path().filename()] = contentOf(entry.path());
  const std::map<std::string, std::string> expected{{"pagewren-markdown-mac-01.png", "mine"},
                                                    {"pagewren-markdown-mac-01 (2).png", png},
                                                    {"pagewren-markdown-mac-02.jpg", jpeg}};
  EXPECT_EQ(files, expected);

  parts_.prompts.chosen = folder.path() / "own.png";
  pressInViewer(Qt::Key_S, Qt::ControlModifier);
  EXPECT_EQ(parts_.prompts.suggested.back(), folder.path() / "pagewren-markdown-mac-01.png");
  waitFor([] { return says(*viewer(), u"Saved own.png."_s); });
  EXPECT_EQ(contentOf(folder.path() / "own.png"), png);

  http.answer(original(1), 200, png);
  parts_.prompts.chosen = folder.path() / "own.png";  // no folder
  button(*viewer(), u"Save All…"_s).click();
  waitFor([] { return says(*viewer(), u"could not be written"_s); });
  EXPECT_TRUE(button(*viewer(), u"Save All…"_s).isEnabled());
}

TEST(PictureZoomTest, KeepsThePictureInItsViewAndWhatIsAtThePointerThere) {
  PictureZoom zoom;
  zoom.setView({800, 600});
  zoom.setPicture({1600, 1000});
  EXPECT_EQ(zoom.place(), QRectF(0, 50, 800, 500));
  zoom.toggle({200, 300});
  EXPECT_EQ(zoom.place(), QRectF(-200, -200, 1600, 1000));
  zoom.move({5000, -5000});
  EXPECT_EQ(zoom.place(), QRectF(0, -400, 1600, 1000));
  zoom.setView({2000, 600});
  EXPECT_EQ(zoom.place().left(), 200);
  EXPECT_TRUE(zoom.stepOut({0, 0}));
  EXPECT_EQ(zoom.scale(), 0.75);
  EXPECT_TRUE(zoom.stepOut({0, 0}));
  EXPECT_TRUE(zoom.isFit()) << "at " << zoom.scale();
  EXPECT_FALSE(zoom.stepOut({0, 0}));
  while (zoom.stepIn({0, 0})) continue;
  EXPECT_EQ(zoom.scale(), 8);
  zoom.setPicture({});
  EXPECT_TRUE(zoom.place().isNull());
}

}  // namespace
}  // namespace quillet
