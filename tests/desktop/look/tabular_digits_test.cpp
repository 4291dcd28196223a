// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/look/tabular_digits.h"

#include <gtest/gtest.h>

#include <random>

namespace quillet {
namespace {

/// A table with one feature of one lookup: `lookup` is that lookup's bytes.
QByteArray tableWith(const char* feature, const QByteArray& lookup) {
  const QByteArray head = QByteArray::fromHex(
      "00010000000000"
      "0a"
      "0018");
  const QByteArray features = QByteArray::fromHex("0001") + feature + QByteArray::fromHex("0008") +
                              QByteArray::fromHex("000000010000");
  const QByteArray lookups = QByteArray::fromHex("00010004") + lookup;
  return head + features + lookups;
}

// Glyphs 5 to 7 become 105 to 107: by a range and an offset, by a list, and behind an extension.
const QByteArray kByOffset = QByteArray::fromHex(
    "0001000000010008"
    "000100060064"
    "00020001000500070000");
const QByteArray kByList = QByteArray::fromHex(
    "0001000000010008"
    "0002000c00030069006a006b"
    "00010003000500060007");
const QByteArray kExtended = QByteArray::fromHex(
    "0007000000010008"
    "0001000100000008"
    "000100060064"
    "00020001000500070000");

TEST(TabularDigitsTest, ReadsSingleSubstitutionsInTheirForms) {
  const QHash<quint32, quint32> expected{{5, 105}, {6, 106}, {7, 107}};
  EXPECT_EQ(tabularGlyphs(tableWith("tnum", kByOffset)), expected);
  EXPECT_EQ(tabularGlyphs(tableWith("tnum", kByList)), expected);
  EXPECT_EQ(tabularGlyphs(tableWith("tnum", kExtended)), expected);
  EXPECT_TRUE(tabularGlyphs(tableWith("onum", kByOffset)).isEmpty());
  EXPECT_TRUE(tabularGlyphs({}).isEmpty());
}

TEST(TabularDigitsTest, TakesDamagedTablesForEmptyParts) {
  std::mt19937 random(7);
  const QByteArray table = tableWith("tnum", kExtended);
  for (int round = 0; round < 2000; ++round) {
    QByteArray damaged = table.left(static_cast<qsizetype>(random() % (table.size() + 1)));
    for (int i = 0; i < 3 && !damaged.isEmpty(); ++i) {
      damaged[static_cast<qsizetype>(random() % damaged.size())] = static_cast<char>(random());
    }
    EXPECT_LE(tabularGlyphs(damaged).size(), 0x10000);
  }
}

}  // namespace
}  // namespace quillet
