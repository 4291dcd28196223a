// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

// Whatever a row says and however narrow its list is, its parts keep clear of each other.

#include "desktop/lists/row_places.h"

#include <gtest/gtest.h>

#include <QPainter>

#include "desktop/lists/app_list_view.h"
#include "desktop/lists/list_fixtures.h"
#include "desktop/lists/row_texts.h"
#include "desktop/lists/row_types.h"
#include "desktop/look/quillet_style.h"

namespace quillet {
namespace {

struct NamedPart {
  const char* name;
  QRectF place;
};

std::vector<NamedPart> partsOf(const RowPlaces& places) {
  std::vector<NamedPart> all{
      {"dot", places.dot},           {"rank", places.rank},         {"movement", places.movement},
      {"artwork", places.artwork},   {"name", places.name},         {"stars", places.stars},
      {"count", places.ratingCount}, {"icon", places.detailIcon},   {"detail", places.detail},
      {"bar", places.noteBar},       {"note", places.note},         {"badge", places.badge},
      {"was", places.was},           {"line", places.sparkline},    {"price", places.price},
      {"aside", places.aside},       {"mark", places.lowMark},      {"lowest", places.lowText},
      {"time", places.time},         {"first", places.pictures[0]}, {"last", places.pictures[3]},
      {"arrow", places.arrow},       {"share", places.share},       {"watch", places.watch}};
  std::erase_if(all, [](const NamedPart& part) { return part.place.isEmpty(); });
  return all;
}

struct HostileText {
  const char* name;
  QString text;
};

const std::vector<HostileText>& hostileTexts() {
  static const std::vector<HostileText> texts{
      {"plain", u"Paperfold"_s},
      {"empty", {}},
      {"500 letters", QString(500, u'W')},
      {"500 words", u"mm "_s.repeated(500)},
      {"line breaks", u"one\ntwo\r\nthree\u2028four\u2029five\tsix"_s},
      {"overrides of direction", u"abc \u202Edef ghi\u202D jkl \u2067mno"_s},
      {"both directions", u"Paperfold \u05E2\u05D1\u05E8\u05D9\u05EA"_s},
      {"right to left", u"\u05E2\u05D1\u05E8\u05D9\u05EA Paperfold"_s},
      {"marks upon marks", u"Z\u0351\u036B\u0343\u036A\u0302\u036B\u033D\u034F"_s.repeated(40)},
      {"markup", u"<b>bold</b><img src=x> &amp;"_s},
  };
  return texts;
}

AppRow rowSaying(const QString& text) {
  AppRow row = namedRow(1, text);
  row.seller = row.note = row.aside = row.was = row.badge = row.time = row.rank = text;
  row.movement = PlaceChange{ChartMovement::up, 212, 200};
  row.lowText = text;
  row.price = {text, PriceMove::down, 4.99, "USD"};
  row.ratingHalves = 7;
  row.marks = RowMark::atLowest;
  row.marks |= RowMark::unread;
  return row;
}

std::vector<RowLayout> layouts() {
  std::vector<RowLayout> all;
  for (const RowFixture& fixture : rowFixtures()) all.push_back(fixture.table.layout);
  all.push_back({.hasSparkline = true, .hasStars = true, .hasRanks = true});
  return all;
}

Look& look() { return qobject_cast<QuilletStyle*>(QApplication::style())->look(); }

TEST(RowPlaces, KeepPartsApartAndInsideWhateverTheySayAtAnyWidth) {
  constexpr std::pair<int, double> kSizes[] = {{320, 1},   {380, 1}, {459, 1}, {460, 1},
                                               {700, 1},   {840, 1}, {960, 1}, {1400, 1},
                                               {480, 1.5}, {700, 2}, {1400, 2}};
  for (const HostileText& hostile : hostileTexts()) {
    for (const RowLayout& layout : layouts()) {
      for (const bool isPriced : {true, false}) {
        AppRow row = rowSaying(hostile.text);
        if (!isPriced) row.price = {};
        if (!isPriced) row.pictures = {"a", "b", "c", "d"};
        for (const auto& [width, text] : kSizes) {
          look().text.setScale(text);
          const auto heading = layout.hasDays ? RowHeading::day : RowHeading::none;
          const QRectF item(0, 0, width, itemHeight(row, layout, heading, look()));
          const RowPlaces places = placesOf(row, layout, heading, item, look());
          const auto parts = partsOf(places);
          const std::string where = hostile.name + std::string(" at ") + std::to_string(width) +
                                    " x" + std::to_string(text);
          // A line is higher than the letters of its text.
          EXPECT_GT(places.name.height(), kRowType.pixels * text * 1.3) << where;
          for (const NamedPart& part : parts) {
            EXPECT_TRUE(places.row.contains(part.place)) << where << ": " << part.name;
            for (const NamedPart& other : parts) {
              if (part.name == other.name) continue;
              EXPECT_FALSE(part.place.intersects(other.place))
                  << where << ": " << part.name << " over " << other.name;
            }
          }
          EXPECT_GE(places.name.width(), 60) << where;
        }
      }
    }
  }
  look().text.setScale(1);
}

/// What the drawn text covers, from left to right.
std::pair<int, int> inkOf(const QString& text, double width) {
  constexpr int kMargin = 100;
  QImage image(static_cast<int>(width) + 2 * kMargin, 40, QImage::Format_RGB32);
  image.fill(Qt::white);
  QPainter painter(&image);
  look().text.drawElided(painter, {QRectF(kMargin, 10, width, 20)}, text, kRowType, Qt::black);
  painter.end();
  int first = image.width();
  int last = -1;
  for (int x = 0; x < image.width(); ++x) {
    for (int y = 0; y < image.height(); ++y) {
      if (qGray(image.pixel(x, y)) > 128) continue;
      first = std::min(first, x - kMargin);
      last = x - kMargin;
    }
  }
  return {first, last};
}

TEST(RowPlaces, TextsStayInTheirPlaceWhateverTheySay) {
  for (const HostileText& hostile : hostileTexts()) {
    for (const double width : {60.0, 170.0, 400.0}) {
      const auto [first, last] = inkOf(hostile.text, width);
      if (last < 0) continue;
      EXPECT_GE(first, -2) << hostile.name << width;
      EXPECT_LE(last, width + 1) << hostile.name << width;
    }
  }
}

/// Parts go one after the other as a list becomes narrow, each whole.
TEST(RowPlaces, LeaveOutWhatHasNoRoom) {
  struct Row {
    int width;
    const char* fixture;
    bool hasLine, hasStars, hasWas;
    bool hasLow = false;
  };
  const std::vector<Row> rows{
      {460, "watchlist", true, true, false},     {459, "watchlist", false, true, false},
      {360, "watchlist", false, true, false},    {359, "watchlist", false, false, false},
      {460, "history", false, false, true},      {459, "history", false, false, false},
      {960, "deals", true, false, true, true},   {959, "deals", false, false, true, true},
      {840, "deals", false, false, true, true},  {839, "deals", false, false, true, false},
      {700, "deals", false, false, true, false}, {699, "deals", true, false, false, false}};
  for (const Row& row : rows) {
    for (const RowFixture& fixture : rowFixtures()) {
      if (fixture.name != std::string_view(row.fixture)) continue;
      AppRow shown = fixture.rows[2];
      const RowLayout& layout = fixture.table.layout;
      const QRectF item(0, 0, row.width, layout.height);
      const RowPlaces places = placesOf(shown, layout, RowHeading::none, item, look());
      EXPECT_EQ(!places.sparkline.isNull(), row.hasLine) << row.fixture << row.width;
      EXPECT_EQ(!places.stars.isNull(), row.hasStars) << row.fixture << row.width;
      EXPECT_EQ(!places.was.isNull(), row.hasWas) << row.fixture << row.width;
      EXPECT_EQ(!places.lowText.isNull(), row.hasLow) << row.fixture << row.width;
    }
  }
}

TEST(RowPlaces, SparklinesStandInOneColumn) {
  RowLayout layout;
  layout.hasSparkline = true;
  AppRow row = namedRow(1, u"Typebarn Editor"_s);
  row.price = {u"Free"_s, PriceMove::down, 0, "USD"};
  row.marks = RowMark::atLowest;
  std::set<double> columns;
  for (const QString& percent : {u"−5 %"_s, u"−50 %"_s, u"−100 %"_s}) {
    row.aside = percent;
    columns.insert(
        placesOf(row, layout, RowHeading::none, QRectF(0, 0, 498, 64), look()).sparkline.left());
  }
  EXPECT_EQ(columns.size(), 1U);
}

}  // namespace
}  // namespace quillet
