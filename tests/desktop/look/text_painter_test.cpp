// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/look/text_painter.h"

#include <gtest/gtest.h>

#include <QFontMetricsF>
#include <QImage>
#include <QPainter>

namespace quillet {
namespace {

using namespace Qt::Literals::StringLiterals;

TEST(TextPainterTest, GivesDigitsOfColumnsOneWidth) {
  TextPainter text;
  EXPECT_DOUBLE_EQ(text.width(u"111.11"_s, kBodyType.tabular()),
                   text.width(u"888.88"_s, kBodyType.tabular()));
  EXPECT_LT(text.width(u"111.11"_s, kBodyType), text.width(u"888.88"_s, kBodyType));
}

TEST(TextPainterTest, MeasuresWholeSizesAsQtDoesAndFractionsBetweenThem) {
  TextPainter text;
  const QString words = u"Pagewren Markdown, 12 %"_s;
  EXPECT_NEAR(text.width(words, kFactType),
              QFontMetricsF(text.font(kFactType)).horizontalAdvance(words), 0.1);
  const double small = text.width(words, {11});
  const double large = text.width(words, {12});
  EXPECT_NEAR(text.width(words, {11.5}), (small + large) / 2, 0.3);
}

TEST(TextPainterTest, ElidesAtWholeCharactersOfAnyScript) {
  TextPainter text;
  struct {
    const char* text;
    double width;
  } const rows[] = {
      {"Pagewren Markdown", 60},
      {"メモの庭 メモの庭", 60},
      {"👩‍👩‍👧👩‍👩‍👧👩‍👩‍👧👩‍👩‍👧", 50},
      {"שלום עולם גדול", 50}};
  for (const auto& row : rows) {
    const QString whole = QString::fromUtf8(row.text);
    const QString cut = text.elided(whole, kBodyType, row.width);
    EXPECT_LE(text.width(cut, kBodyType), row.width);
    EXPECT_TRUE(cut.endsWith(u'…')) << row.text;
    EXPECT_TRUE(whole.startsWith(cut.chopped(1).trimmed()));
    EXPECT_FALSE(cut.chopped(1).endsWith(QChar(0x200D)));
    EXPECT_EQ(text.elided(whole, kBodyType, 1000), whole);
  }
}

TEST(TextPainterTest, DrawsHostileTextsInOneLine) {
  TextPainter text;
  QImage image(400, 40, QImage::Format_RGB32);
  for (const QString& words : {QString(), QString(u'\n'), u"a\nb\tc"_s, QString(500, u'W'),
                               u"\u202Eabc"_s, u"<b>x</b>"_s, QString(QChar(0xD800))}) {
    image.fill(Qt::white);
    QPainter painter(&image);
    const double width =
        text.drawElided(painter, {QRectF(0, 10, 400, 20)}, words, kBodyType, Qt::black);
    EXPECT_LE(width, 400.0);
  }
}

}  // namespace
}  // namespace quillet
