// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/sections/my_apps/upkeep_columns.h"

#include <QCoreApplication>
#include <QLocale>
#include <algorithm>

namespace quillet {

namespace {

struct ColumnFace {
  const char* title;
  Token color;
  bool offersReplacement;
};

constexpr std::array<ColumnFace, kUpkeepColumns> kFaces{{
    {QT_TRANSLATE_NOOP("Upkeep", "Fine"), Token::good, false},
    {QT_TRANSLATE_NOOP("Upkeep", "Slowing down"), Token::fair, false},
    {QT_TRANSLATE_NOOP("Upkeep", "Stale"), Token::weak, true},
    {QT_TRANSLATE_NOOP("Upkeep", "Likely abandoned"), Token::bad, true},
    {QT_TRANSLATE_NOOP("Upkeep", "Needs Rosetta"), Token::weak, true},
    {QT_TRANSLATE_NOOP("Upkeep", "Gone from the store"), Token::bad, true},
}};

/// Of those that tell of a verdict.
constexpr std::array<MaintenanceLevel, 4> kLevels{
    MaintenanceLevel::active, MaintenanceLevel::slowing, MaintenanceLevel::stale,
    MaintenanceLevel::abandoned};

const ColumnFace& faceOf(UpkeepColumn column) { return kFaces.at(indexOf(column)); }

}  // namespace

bool standsIn(const AppRow& row, UpkeepColumn column) {
  if (!row.care) return false;
  switch (column) {
    case UpkeepColumn::rosetta: return row.care->needsRosetta == true;
    case UpkeepColumn::gone: return !row.care->gone.isEmpty();
    default: return row.care->level == kLevels.at(indexOf(column));
  }
}

QString upkeepTitle(UpkeepColumn column) {
  return QCoreApplication::translate("Upkeep", faceOf(column).title);
}

Token upkeepColor(UpkeepColumn column) { return faceOf(column).color; }

bool offersReplacement(UpkeepColumn column) { return faceOf(column).offersReplacement; }

bool isReplaceable(const AppRow& row) { return row.care && !row.care->category.empty(); }

QString cardName(const QString& name) {
  qsizetype end = name.size();
  for (const QString& mark : {QStringLiteral(" – "), QStringLiteral(": ")}) {
    const qsizetype found = name.indexOf(mark);
    // What begins with it has no other name.
    if (found > 0) end = std::min(end, found);
  }
  return name.left(end);
}

QString cardText(const AppRow& row, UpkeepColumn column) {
  if (!row.care) return {};
  switch (column) {
    case UpkeepColumn::rosetta: return QCoreApplication::translate("Upkeep", "Intel only");
    case UpkeepColumn::gone: return row.care->gone;
    default: return row.care->age;
  }
}

QString appsText(std::size_t apps) {
  if (apps == 1) return QCoreApplication::translate("Upkeep", "1 app");
  return QCoreApplication::translate("Upkeep", "%1 apps").arg(QLocale().toString(apps));
}

void count(UpkeepTally& tally, const AppRow& row) {
  for (std::size_t i = 0; i < kUpkeepColumns; ++i)
    tally.apps.at(i) += standsIn(row, static_cast<UpkeepColumn>(i)) ? 1 : 0;
  const bool isKnown = row.care && row.care->level != MaintenanceLevel::unknown;
  if (!isKnown) {
    ++tally.unknown;
  } else if (row.care->toldAt) {
    tally.oldest = std::min(tally.oldest.value_or(*row.care->toldAt), *row.care->toldAt);
  }
}

}  // namespace quillet
