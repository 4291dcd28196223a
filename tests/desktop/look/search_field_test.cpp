// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/look/search_field.h"

#include <gtest/gtest.h>

#include <QTest>
#include <QToolButton>

namespace quillet {
namespace {

using namespace Qt::Literals::StringLiterals;

TEST(SearchFieldTest, IsEmptiedByItsButton) {
  SearchField field(u"Find in Watchlist"_s, u"Ctrl+F"_s);
  auto* clear = field.findChild<QToolButton*>();
  EXPECT_TRUE(clear->isHidden());
  QTest::keyClicks(&field, u"note"_s);
  EXPECT_FALSE(clear->isHidden());
  QTest::mouseClick(clear, Qt::LeftButton);
  EXPECT_EQ(field.text(), QString());
  EXPECT_TRUE(clear->isHidden());
}

TEST(SearchFieldTest, KeepsItsTextOffGlassKeysAndButtonInEitherDirection) {
  SearchField field(u"Find"_s, u"Ctrl+F"_s);
  field.resize(200, 32);
  field.show();
  auto* clear = field.findChild<QToolButton*>();
  for (const Qt::LayoutDirection direction : {Qt::LeftToRight, Qt::RightToLeft}) {
    const bool isMirrored = direction == Qt::RightToLeft;
    field.setLayoutDirection(direction);
    field.clear();
    const QMargins empty = field.textMargins();
    EXPECT_GE(isMirrored ? empty.right() : empty.left(), 14);
    EXPECT_GE(isMirrored ? empty.left() : empty.right(), 40) << "the keys";
    field.setText(u"note"_s);
    const int beside = isMirrored ? field.textMargins().left() : field.textMargins().right();
    EXPECT_GE(beside, clear->width());
    EXPECT_EQ(clear->geometry().center().x() < field.width() / 2, isMirrored);
  }
}

}  // namespace
}  // namespace quillet
