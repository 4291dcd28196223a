// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/look/tabular_digits.h"

#include <QtEndian>
#include <set>
#include <vector>

namespace quillet {

namespace {

// OpenType's table of glyph substitutions ("GSUB"); offsets count from the start of the structure
// that holds them.
constexpr int kSingleSubstitution = 1;
constexpr int kExtension = 7;

/// A structure of the table. What lies behind the table's end reads as 0, which every count and
/// offset takes for nothing.
class Structure {
 public:
  explicit Structure(const QByteArray& table, qsizetype start = 0)
      : table_(&table), start_(start) {}

  [[nodiscard]] int number(qsizetype offset) const {
    const qsizetype at = start_ + offset;
    if (at < 0 || at + 2 > table_->size()) return 0;
    return qFromBigEndian<quint16>(table_->constData() + at);
  }
  [[nodiscard]] qsizetype longNumber(qsizetype offset) const {
    return (static_cast<qsizetype>(number(offset)) << 16) | number(offset + 2);
  }
  [[nodiscard]] Structure at(qsizetype offset) const { return Structure(*table_, start_ + offset); }
  [[nodiscard]] Structure linked(qsizetype offset) const { return at(number(offset)); }
  [[nodiscard]] bool isTagged(qsizetype offset, const char* tag) const {
    return table_->mid(start_ + offset, 4) == tag;
  }

 private:
  const QByteArray* table_;
  qsizetype start_;
};

/// The glyphs that a substitution is about, in its order.
std::vector<quint32> coveredGlyphs(const Structure& coverage) {
  std::vector<quint32> glyphs;
  const int count = coverage.number(2);
  if (coverage.number(0) == 1) {
    for (int i = 0; i < count; ++i) {
      glyphs.push_back(static_cast<quint32>(coverage.number(4 + 2 * i)));
    }
    return glyphs;
  }
  for (int i = 0; i < count; ++i) {
    const Structure range = coverage.at(4 + 6 * i);
    for (int glyph = range.number(0); glyph <= range.number(2); ++glyph) {
      glyphs.push_back(static_cast<quint32>(glyph));
    }
    // A damaged table may name every glyph again and again.
    if (glyphs.size() > 0xFFFF) return {};
  }
  return glyphs;
}

void addSingleSubstitution(const Structure& table, QHash<quint32, quint32>& glyphs) {
  const bool isOffset = table.number(0) == 1;
  const std::vector<quint32> covered = coveredGlyphs(table.linked(2));
  for (std::size_t i = 0; i < covered.size(); ++i) {
    const int other = isOffset ? static_cast<int>(covered[i]) + table.number(4)
                               : table.number(6 + 2 * static_cast<qsizetype>(i));
    glyphs.insert(covered[i], static_cast<quint16>(other));
  }
}

void addLookup(const Structure& lookup, QHash<quint32, quint32>& glyphs) {
  for (int i = 0; i < lookup.number(4); ++i) {
    Structure table = lookup.linked(6 + 2 * i);
    int type = lookup.number(0);
    if (type == kExtension) {
      type = table.number(2);
      table = table.at(table.longNumber(4));
    }
    if (type == kSingleSubstitution) addSingleSubstitution(table, glyphs);
  }
}

std::set<int> lookupsOf(const char* feature, const Structure& features) {
  std::set<int> lookups;
  for (int i = 0; i < features.number(0); ++i) {
    const qsizetype row = 2 + 6 * i;
    if (!features.isTagged(row, feature)) continue;
    const Structure found = features.linked(row + 4);
    for (int k = 0; k < found.number(2); ++k) lookups.insert(found.number(4 + 2 * k));
  }
  return lookups;
}

}  // namespace

QHash<quint32, quint32> tabularGlyphs(const QByteArray& substitutions) {
  const Structure table(substitutions);
  const Structure lookups = table.linked(8);
  QHash<quint32, quint32> glyphs;
  for (const int index : lookupsOf("tnum", table.linked(6))) {
    addLookup(lookups.linked(2 + 2 * index), glyphs);
  }
  return glyphs;
}

}  // namespace quillet
