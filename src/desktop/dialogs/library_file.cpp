// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/dialogs/library_file.h"

#include <fmt/format.h>

#include <QCoreApplication>
#include <QDateTime>
#include <QFile>
#include <QLocale>
#include <QStandardPaths>

#include "desktop/services/last_folders.h"
#include "library/library_export_csv.h"
#include "library/library_export_json.h"

namespace quillet {

namespace {

// Stored; never change.
QString purpose() { return QStringLiteral("library"); }

QString tr(const char* text) { return QCoreApplication::translate("LibraryFile", text); }

QString counted(std::size_t number, const char* one, const char* many) {
  if (number == 1) return tr(one);
  return tr(many).arg(QLocale().toString(static_cast<qulonglong>(number)));
}

}  // namespace

std::string textOf(const LibraryExport& document, ExportFormat format) {
  return format == ExportFormat::json ? libraryExportJson(document) : libraryExportCsv(document);
}

QString amountOf(const LibraryExport& document) {
#define TEXT(text) QT_TRANSLATE_NOOP("LibraryFile", text)
  std::size_t entries = 0;
  for (const CollectionItem& each : document.collections) entries += each.entries.size();
  QStringList parts;
  if (!document.watchlist.empty())
    parts.append(
        counted(document.watchlist.size(), TEXT("1 watched app"), TEXT("%1 watched apps")));
  if (!document.collections.empty())
    parts.append(
        tr("%1 with %2")
            .arg(counted(document.collections.size(), TEXT("1 collection"), TEXT("%1 collections")),
                 counted(entries, TEXT("1 app"), TEXT("%1 apps"))));
#undef TEXT
  return parts.isEmpty() ? tr("Nothing") : parts.join(tr(" and "));
}

std::filesystem::path libraryFolder(const ViewWorld& world) {
  const QString documents = QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
  return lastFolder(world.state, purpose(), QFile::encodeName(documents).toStdString());
}

void rememberLibraryFolder(const ViewWorld& world, const std::filesystem::path& file) {
  rememberFolder(world.state, purpose(), file.parent_path());
}

std::filesystem::path suggestedExport(const ViewWorld& world, const std::string& what,
                                      ExportFormat format) {
  const Instant now = world.clock.now();
  const auto local = std::chrono::floor<std::chrono::seconds>(now + world.zone(now));
  const QDate day = QDateTime::fromSecsSinceEpoch(local.time_since_epoch().count(), Qt::UTC).date();
  return libraryFolder(world) / fmt::format("{} {}.{}", what,
                                            day.toString(Qt::ISODate).toStdString(),
                                            textOf(kExportFormatWords, format));
}

}  // namespace quillet
