// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include <QCoreApplication>
#include <QStringList>
#include <cstdlib>

#include "desktop/models/app_row.h"

namespace quillet {

namespace {

QString ratingText(const AppRow& row) {
  if (!row.ratingHalves) return {};
  const QString stars = QString::number(*row.ratingHalves / 2.0);
  if (row.ratingCount.isEmpty())
    return QCoreApplication::translate("Rows", "%1 of 5 stars").arg(stars);
  return QCoreApplication::translate("Rows", "%1 of 5 stars from %2 ratings")
      .arg(stars, row.ratingCount);
}

/// What a reader sees by a mark or a colour alone.
QStringList markTexts(RowMarks marks) {
  QStringList texts;
  if (marks.testFlag(RowMark::unread)) texts << QCoreApplication::translate("Rows", "unread");
  if (marks.testFlag(RowMark::atLowest))
    texts << QCoreApplication::translate("Rows", "at its lowest");
  if (marks.testFlag(RowMark::watched)) texts << QCoreApplication::translate("Rows", "watched");
  return texts;
}

/// The place in a chart, and whence.
QString placeText(const AppRow& row) {
  if (row.rank.isEmpty()) return {};
  const QString place = QCoreApplication::translate("Rows", "rank %1").arg(row.rank);
  if (!row.movement) return place;
  const QString change = QString::number(std::abs(row.movement->change.value_or(0)));
  switch (row.movement->movement) {
    case ChartMovement::up:
      return place + QCoreApplication::translate("Rows", ", up %1").arg(change);
    case ChartMovement::down:
      return place + QCoreApplication::translate("Rows", ", down %1").arg(change);
    case ChartMovement::same: return place + QCoreApplication::translate("Rows", ", unchanged");
    case ChartMovement::isNew: break;
  }
  return place + QCoreApplication::translate("Rows", ", new in the chart");
}

}  // namespace

QString sentenceOf(const AppRow& row) {
  QStringList parts{row.title.isEmpty() ? row.name : row.title,
                    row.price.text,
                    placeText(row),
                    row.was,
                    row.badge,
                    row.aside};
  parts += markTexts(row.marks);
  parts << row.lowText << (row.detail.isEmpty() ? row.seller : row.detail) << ratingText(row)
        << row.note << row.day << row.time;
  parts.removeAll(QString());
  // What would break a line breaks a sentence too.
  return parts.join(QStringLiteral(", ")).simplified();
}

QString foldedText(std::initializer_list<QString> texts) {
  QString folded;
  for (const QString& text : texts) folded += text.simplified().toCaseFolded() + QChar::LineFeed;
  return folded;
}

}  // namespace quillet
