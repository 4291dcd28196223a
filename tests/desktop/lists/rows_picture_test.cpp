// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

// Rows with every part that any list has, as pictures that are compared.

#include <gtest/gtest.h>

#include <QHoverEvent>
#include <QPainter>
#include <QTest>

#include "desktop/lists/app_list_view.h"
#include "desktop/lists/list_fixtures.h"
#include "desktop/look/quillet_style.h"
#include "support/pictures.h"

namespace quillet {
namespace {

constexpr int kWidth = 498;
constexpr int kWideWidth = 1051;  // of deals in columns

void point(AppListView& view, int row) {
  const QPointF at = view.visualRect(view.model()->index(row, 0)).center();
  QHoverEvent event(QEvent::HoverMove, at, at, QPointF(-1, -1));
  QCoreApplication::sendEvent(view.viewport(), &event);
}

/// As after a key.
void focus(AppListView& view) {
  view.show();
  view.activateWindow();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&view));
  QTest::keyClick(&view, Qt::Key_Home);
}

/// Lists below each other, each as high as its rows: those in columns, or all others.
QImage pictureOf(bool hasColumns, double ratio) {
  const int width = hasColumns ? kWideWidth : kWidth;
  TestWorld world;
  std::vector<QImage> lists;
  int height = 0;
  for (const RowFixture& fixture : rowFixtures()) {
    if (fixture.table.layout.hasDealColumns != hasColumns) continue;
    AppListModel rows;
    RowFilterModel filter(rows, fixture.table);
    AppListView view(u"Rows"_s, filter, world.parts.images);
    rows.reset(fixture.rows);
    rows.setExtras({{fixture.rows[0].key.app, {{{0, 9.99}, {0.4, 4.99}, {0.5, 9.99}, {0.9, 4.99}}}},
                    {fixture.rows[1].key.app, {{{0, 4.99}, {0.8, 14.99}}}}});
    view.resize(width, 10);
    view.chooseRow(0);
    const int last = filter.rowCount() - 1;
    const int listHeight = view.visualRect(filter.index(last, 0)).bottom() + 9;
    view.resize(width, listHeight);
    if (fixture.name == std::string_view("watchlist")) point(view, 3);
    if (fixture.name == std::string_view("owned")) focus(view);
    QImage image(QSize(width, listHeight) * ratio, QImage::Format_RGB32);
    image.setDevicePixelRatio(ratio);
    view.render(&image);
    lists.push_back(image);
    height += listHeight;
  }
  QImage sheet(QSize(width, height) * ratio, QImage::Format_RGB32);
  sheet.setDevicePixelRatio(ratio);
  QPainter painter(&sheet);
  double y = 0;
  for (const QImage& list : lists) {
    painter.drawImage(QPointF(0, y), list);
    y += list.height() / ratio;
  }
  return sheet;
}

struct Posed {
  const char* name;
  Scheme scheme;
  double ratio;
  double text = 1;
  bool hasColumns = false;
};

class RowsPictureTest : public testing::TestWithParam<Posed> {};

TEST_P(RowsPictureTest, LookAsTheyDid) {
  const Posed& posed = GetParam();
  auto& style = *qobject_cast<QuilletStyle*>(QApplication::style());
  style.setPalette(Palette(posed.scheme, Contrast::normal));
  style.setTextScale(posed.text);
  EXPECT_TRUE(looksLike(QString::fromLatin1(posed.name), pictureOf(posed.hasColumns, posed.ratio)));
  style.setTextScale(1);
  style.setPalette(Palette(Scheme::light, Contrast::normal));
}

INSTANTIATE_TEST_SUITE_P(Schemes, RowsPictureTest,
                         testing::Values(Posed{"rows-light@1", Scheme::light, 1},
                                         Posed{"rows-dark@1", Scheme::dark, 1},
                                         Posed{"rows-light@2", Scheme::light, 2},
                                         Posed{"rows-light-150", Scheme::light, 1, 1.5},
                                         Posed{"deal-rows-light@1", Scheme::light, 1, 1, true},
                                         Posed{"deal-rows-dark@2", Scheme::dark, 2, 1, true}));

}  // namespace
}  // namespace quillet
