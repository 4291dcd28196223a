// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

// What stands around rows, as a picture that is compared.

#include <gtest/gtest.h>

#include <QPainter>
#include <QTest>

#include "desktop/lists/chip_bar.h"
#include "desktop/lists/list_fixtures.h"
#include "desktop/lists/list_placeholder.h"
#include "desktop/lists/list_strip.h"
#include "desktop/look/quillet_style.h"
#include "support/event_loop.h"
#include "support/pictures.h"

namespace quillet {
namespace {

using namespace std::chrono_literals;

constexpr int kWidth = 498;

/// Widgets below each other, as a window of the scheme would show them.
class Sheet {
 public:
  void add(QWidget& widget, int width = kWidth, int height = 0) {
    widget.resize(width, height == 0 ? widget.sizeHint().height() : height);
    pictures_.push_back(widget.grab().toImage());
    height_ += widget.height();
  }
  [[nodiscard]] QImage image() const {
    QImage sheet(kWidth, height_, QImage::Format_RGB32);
    sheet.fill(QApplication::palette().color(QPalette::Base));
    QPainter painter(&sheet);
    int y = 0;
    for (const QImage& each : pictures_) {
      painter.drawImage(0, y, each);
      y += each.height();
    }
    return sheet;
  }

 private:
  std::vector<QImage> pictures_;
  int height_ = 0;
};

void addChips(Sheet& sheet) {
  ChipBar bar(u"Watchlist"_s, testTable());
  bar.setCount(40, 40);
  sheet.add(bar);
  bar.setChosen({"dropped", "free"});
  bar.setCount(23, 200);
  sheet.add(bar);
  bar.setChosen({"version"});
  sheet.add(bar, 380);
}

void addStrips(Sheet& sheet) {
  FakeClock clock{Instant(24h)};
  const Instant now = clock.now();
  ListStrip strip(clock);
  for (const ListState& state : std::initializer_list<ListState>{
           Stale{now - 3h}, BudgetWait{now + 12s}, Throttled{now + 43s}, Offline{},
           Failed{u"The library could not be read, and this is a sentence that goes on until "
                  u"there is no more room for it."_s}}) {
    strip.setState(state);
    sheet.add(strip);
  }
}

void addPlaceholders(Sheet& sheet) {
  ListPlaceholder placeholder(u"Rows"_s, testTable().empty);
  using Kind = ListPlaceholder::Kind;
  for (const Kind kind : {Kind::empty, Kind::noMatch}) {
    placeholder.setKind(kind);
    sheet.add(placeholder, kWidth, 260);
  }
  placeholder.setKind(Kind::loading);
  placeholder.resize(kWidth, 270);
  const QImage atOnce = placeholder.grab().toImage();
  // Grey rows would only flicker before a list that is there in a moment.
  waitFor([&] { return placeholder.grab().toImage() != atOnce; });
  sheet.add(placeholder, kWidth, 270);
}

class PartsPictureTest : public testing::TestWithParam<Scheme> {};

TEST_P(PartsPictureTest, LookAsTheyDid) {
  auto& style = *qobject_cast<QuilletStyle*>(QApplication::style());
  style.setPalette(Palette(GetParam(), Contrast::normal));
  Sheet sheet;
  addChips(sheet);
  addStrips(sheet);
  addPlaceholders(sheet);
  const QString scheme = GetParam() == Scheme::dark ? u"dark"_s : u"light"_s;
  EXPECT_TRUE(looksLike(u"list-parts-%1@1"_s.arg(scheme), sheet.image()));
  style.setPalette(Palette(Scheme::light, Contrast::normal));
}

INSTANTIATE_TEST_SUITE_P(Schemes, PartsPictureTest, testing::Values(Scheme::light, Scheme::dark));

}  // namespace
}  // namespace quillet
