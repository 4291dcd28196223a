// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/sections/compare/comparison_document.h"

#include <QCoreApplication>

namespace quillet {

namespace {

QString tr(const char* text) { return QCoreApplication::translate("Compare", text); }

}  // namespace

ComparisonReport documentOf(const CompareSheet& sheet, const std::string& storefront,
                            const QString& day) {
  ComparisonReport report;
  QStringList names;
  for (const CompareColumn& column : sheet.columns) {
    names << shortName(column.name);
    report.apps.push_back(
        {column.name.toStdString(), column.seller.toStdString(), column.link, column.currency});
  }
  report.title = tr("Compared: %1").arg(names.join(QStringLiteral(", "))).toStdString();
  for (std::size_t row = 0; row < sheet.aspects.size(); ++row) {
    ComparisonRow& written = report.rows.emplace_back();
    written.label = sheet.labels[static_cast<qsizetype>(row)].toStdString();
    for (const CompareColumn& column : sheet.columns) {
      const CompareCell& cell = column.cells[row];
      const bool isUnknown = cell.look == CellLook::quiet && cell.note.isEmpty() && !cell.plain;
      // In a spreadsheet what is not known is an empty cell.
      const auto plain = isUnknown ? std::optional<std::string>("") : cell.plain;
      written.cells.push_back({lineOf(cell, sheet.aspects[row]).toStdString(), plain});
    }
  }
  QStringList missing;
  for (const auto& [app, name] : sheet.missing)
    missing << QStringLiteral("%1 (%2)").arg(name, QString::number(app.trackId));
  if (!missing.isEmpty())
    report.notes.push_back(tr("Not found in this storefront: %1")
                               .arg(missing.join(QStringLiteral(", ")))
                               .toStdString());
  report.notes.push_back(tr("Prices of the %1 storefront, compared by Quillet on %2.")
                             .arg(QString::fromStdString(storefront), day)
                             .toStdString());
  return report;
}

}  // namespace quillet
