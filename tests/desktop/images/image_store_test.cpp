// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/images/image_store.h"

#include <gtest/gtest.h>
#include <zlib.h>

#include <QBuffer>
#include <QSignalSpy>

#include "base/errors.h"
#include "desktop/images/image_decoder.h"
#include "support/event_loop.h"
#include "support/fake_clock.h"
#include "support/run_virtual.h"
#include "support/scripted_http_client.h"
#include "support/temporary_folder.h"

namespace quillet {
namespace {

std::string pictureBytes(const QSize& size, const char* format = "PNG") {
  QImage image(size, QImage::Format_RGB32);
  image.fill(QColor(0x2F, 0xA0, 0x8C));
  QBuffer buffer;
  buffer.open(QIODevice::WriteOnly);
  image.save(&buffer, format);
  return buffer.data().toStdString();
}

class ImageStoreTest : public testing::Test {
 protected:
  static std::string address(int app, std::string_view size = "100x100bb.png") {
    return fmt::format("https://pictures.example/{}/{}", app, size);
  }
  static ImageKey key(int app) { return {address(app), 88}; }

  void answer(int app, int status, std::string body) {
    http.answer(address(app, "128x128bb.png"), status, std::move(body));
  }
  /// Lets all that was asked for come to its end.
  void settle() {
    waitFor([this] { return store->isIdle(); });
  }

  std::size_t asked() const { return http.requests().size(); }

  TemporaryFolder folder;
  FakeClock clock;
  ScriptedHttpClient http;
  std::unique_ptr<ImageStore> store = std::make_unique<ImageStore>(http, clock, folder.path());
  QObject view;
};

TEST_F(ImageStoreTest, AsksForTheSizeThatFillsKeepsItAndFindsItAgain) {
  answer(1, 200, pictureBytes({128, 128}));
  QSignalSpy arrived(store.get(), &ImageStore::arrived);
  store->want(&view, {key(1)});
  EXPECT_EQ(store->find(key(1)), nullptr);
  waitFor([&] { return !arrived.isEmpty(); });
  ASSERT_NE(store->find(key(1)), nullptr);
  EXPECT_EQ(store->find(key(1))->size(), QSize(88, 88));
  // The next start finds it on the disk.
  store = std::make_unique<ImageStore>(http, clock, folder.path());
  QSignalSpy again(store.get(), &ImageStore::arrived);
  store->want(&view, {key(1)});
  waitFor([&] { return !again.isEmpty(); });
  EXPECT_EQ(asked(), 1);
}

TEST_F(ImageStoreTest, TakesTheOriginalWhereTheSizeIsMissing) {
  answer(1, 404, "");
  http.answer(address(1), 200, pictureBytes({100, 60}, "JPG"));
  QSignalSpy arrived(store.get(), &ImageStore::arrived);
  store->want(&view, {key(1)});
  waitFor([&] { return !arrived.isEmpty(); });
  EXPECT_EQ(store->find(key(1))->size(), QSize(88, 52));
}

TEST_F(ImageStoreTest, LargePicturesDoNotDriveOutArtwork) {
  answer(0, 200, pictureBytes({128, 128}));
  store->want(&view, {key(0)});
  settle();
  for (int large = 1; large <= 20; ++large) {
    http.answer(address(large, "512x512bb.png"), 200, pictureBytes({512, 512}));
    store->want(&view, {{address(large), 512}});
    settle();
  }
  EXPECT_NE(store->find(key(0)), nullptr);
  EXPECT_NE(store->find({address(20), 512}), nullptr);
  EXPECT_EQ(store->find({address(1), 512}), nullptr);
}

TEST_F(ImageStoreTest, AsksForNothingThatIsNoAddressOfTheWeb) {
  store->want(&view, {{"file:///etc/passwd", 88}, {"data:image/png;base64,", 88}, {"", 88}});
  EXPECT_TRUE(store->isIdle());
}

TEST_F(ImageStoreTest, RemembersForAnHourWhatIsNoPictureAndForAMinuteWhatItCouldNotReach) {
  answer(1, 200, "<html>no picture</html>");
  http.fail(address(2, "128x128bb.png"), NetworkError(NetworkError::Kind::cannotReach, "no route"));
  store->want(&view, {key(1), key(2)});
  waitFor([&] { return asked() == 2; });
  settle();
  for (const auto& [minutes, requests] :
       {std::pair(0, 2), std::pair(2, 3), std::pair(57, 3), std::pair(2, 4)}) {
    clock.advance(std::chrono::minutes(minutes));
    if (minutes == 2) answer(requests == 3 ? 2 : 1, 200, pictureBytes({64, 64}));
    store->want(&view, {key(1), key(2)});
    settle();
    EXPECT_EQ(asked(), requests) << minutes;
  }
}

TEST_F(ImageStoreTest, AsksSixAtATimeAndForgetsWhatWasScrolledAway) {
  std::vector<ImageKey> keys(20);
  for (int i = 0; i < 20; ++i) {
    keys[static_cast<std::size_t>(i)] = key(i);
    http.hold(address(i, "128x128bb.png"));
  }
  store->want(&view, keys);
  waitFor([&] { return asked() == 6; });
  handlePendingEvents();
  EXPECT_EQ(asked(), 6);
  answer(15, 200, pictureBytes({128, 128}));
  QSignalSpy arrived(store.get(), &ImageStore::arrived);
  store->want(&view, {key(15)});
  waitFor([&] { return asked() == 7; });
  http.release(address(15, "128x128bb.png"));
  waitFor([&] { return !arrived.isEmpty(); });
  EXPECT_EQ(asked(), 7);
  for (int i = 0; i < 6; ++i) EXPECT_EQ(store->find(key(i)), nullptr);
}

TEST_F(ImageStoreTest, GoesInTheMiddleOfItAll) {
  auto other = std::make_unique<QObject>();
  http.hold(address(1, "128x128bb.png"));
  store->want(other.get(), {key(1), key(2)});
  answer(2, 200, pictureBytes({128, 128}));
  waitFor([&] { return asked() == 2; });
  other.reset();
  store.reset();
  handlePendingEvents();
}

TEST(ImageDecoderTest, RefusesWhatIsNoPictureOfTheStoreOrTooLarge) {
  const std::string png = pictureBytes({300, 200});
  EXPECT_EQ(decodePicture(png, 100).size(), QSize(100, 66));
  EXPECT_EQ(decodePicture(png, 1000).size(), QSize(300, 200));
  EXPECT_TRUE(decodePicture("", 100).isNull());
  EXPECT_TRUE(decodePicture(pictureBytes({8, 8}, "BMP"), 100).isNull());
  EXPECT_TRUE(decodePicture(png.substr(0, 60), 100).isNull());
  // A header that promises 20,000 by 20,000 pixels, with the checksum that belongs to it.
  std::string huge = png;
  const std::string side("\x00\x00\x4E\x20", 4);
  huge.replace(16, 8, side + side);
  const auto checksum = crc32(0, reinterpret_cast<const Bytef*>(huge.data()) + 12, 17);
  for (std::size_t i = 0; i < 4; ++i) {
    huge[29 + i] = static_cast<char>(checksum >> (24 - 8 * i));
  }
  EXPECT_TRUE(decodePicture(huge, 100).isNull());
}

}  // namespace
}  // namespace quillet
