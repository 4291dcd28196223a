// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/sections/my_apps/my_apps_rows.h"

#include <QCoreApplication>
#include <QStringList>
#include <array>

#include "analysis/update_state.h"
#include "base/cpu_architectures.h"
#include "desktop/models/time_words.h"
#include "library/watched_apps.h"
#include "store/records/itunes_app.h"

namespace quillet {

namespace {

QString tr(const char* text) { return QCoreApplication::translate("MyApps", text); }

// Those that are ordered by a figure which they lack stand last.
constexpr std::array kSorts{
    SortChoice{"name", QT_TRANSLATE_NOOP("Rows", "Name"),
               [](const AppRow& left, const AppRow& right) { return left.folded < right.folded; }},
    SortChoice{"updates", QT_TRANSLATE_NOOP("Rows", "Updates First"),
               [](const AppRow& left, const AppRow& right) {
                 return left.marks.testFlag(RowMark::updateAvailable) &&
                        !right.marks.testFlag(RowMark::updateAvailable);
               }},
    SortChoice{"size", QT_TRANSLATE_NOOP("Rows", "Size"),
               [](const AppRow& left, const AppRow& right) { return left.bytes > right.bytes; }},
    SortChoice{"added", QT_TRANSLATE_NOOP("Rows", "Added"),
               [](const AppRow& left, const AppRow& right) { return left.added > right.added; }},
};

constexpr std::array kChips{
    ChipChoice{"updates", QT_TRANSLATE_NOOP("Rows", "Update available"), RowMark::updateAvailable},
    ChipChoice{"rosetta", QT_TRANSLATE_NOOP("Rows", "Needs Rosetta"), RowMark::needsRosetta},
    ChipChoice{"abandoned", QT_TRANSLATE_NOOP("Rows", "Likely abandoned"),
               RowMark::likelyAbandoned},
    ChipChoice{"elsewhere", QT_TRANSLATE_NOOP("Rows", "Not from the store"), RowMark::notFromStore},
};

constexpr std::array kOffers{
    EmptyOffer{QT_TRANSLATE_NOOP("Rows", "Choose Folder…"), "choose-applications"},
    EmptyOffer{QT_TRANSLATE_NOOP("Rows", "Add by Hand…"), "add-by-hand"}};

/// From the date of the last release alone: the history of all is on the app's page.
MaintenanceHealth healthOf(const std::optional<CachedSummary>& cached, const RowContext& context) {
  const auto released = cached ? cached->currentVersionReleaseDate : std::nullopt;
  return maintenanceHealth({}, released, context.thresholds, context.now);
}

/// Nothing of an app that is cared for: one release says nothing of how often.
QString healthText(const MaintenanceHealth& health) {
  if (!health.monthsSinceUpdate) return {};
  return QString::fromStdString(maintenanceSummary(health));
}

CpuArchitectures architecturesOf(const OwnedApp& app) {
  return architecturesIn(app.architectures.value_or(""));
}

QString detailOf(const OwnedApp& app, const MaintenanceHealth& health, bool isMissing) {
  QStringList parts;
  if (app.isUnavailable == true) parts << tr("No longer sold");
  if (is32BitAlone(architecturesOf(app))) parts << tr("32-bit only");
  if (isMissing) parts << tr("Not found in the last scan");
  if (const QString version = plainLine(app.installedVersion); !version.isEmpty())
    parts << tr("Version %1").arg(version);
  parts << healthText(health) << plainLine(app.sellerName);
  parts.removeAll(QString());
  return parts.join(QStringLiteral(" · "));
}

RowMarks marksOf(const OwnedRow& owned, const MaintenanceHealth& health) {
  const OwnedApp& app = owned.app;
  RowMarks marks;
  marks.setFlag(RowMark::updateAvailable,
                isUpdateWanted(app.installedVersion, app.storeVersion, app.skippedVersion));
  marks.setFlag(RowMark::updateSkipped,
                !marks.testFlag(RowMark::updateAvailable) &&
                    isUpdateAvailable(app.installedVersion, app.storeVersion) == true);
  marks.setFlag(RowMark::likelyAbandoned, health.level == MaintenanceLevel::abandoned);
  marks.setFlag(RowMark::notFromStore, !app.trackViewUrl && !app.storeVersion);
  return marks;
}

QString goneText(const std::optional<Instant>& asked, const RowContext& context) {
  if (!asked) return tr("not sold");
  return tr("not sold on %1").arg(dateText(*asked, context.now, context.zone));
}

AppCare careOf(const OwnedRow& owned, const MaintenanceHealth& health, const RowContext& context) {
  AppCare care{.level = health.level};
  const CpuArchitectures installed = architecturesOf(owned.app);
  care.needsRosetta = needsRosetta(installed);
  care.is32Bit = is32BitAlone(installed);
  if (owned.app.isUnavailable == true) care.gone = goneText(owned.app.lastCheckedAt, context);
  care.category = owned.app.primaryGenreName.value_or("");
  if (!owned.cached) return care;
  const CachedSummary& cached = *owned.cached;
  care.released = cached.currentVersionReleaseDate;
  if (care.released) care.age = agoText(*care.released, context.now);
  care.toldAt = cached.updatedAt;
  if (care.category.empty()) care.category = cached.primaryGenreName.value_or("");
  if (installed.empty()) care.needsRosetta = cached.needsRosetta;
  // Of an iPhone app it is one of iOS.
  if (cached.kind == kMacSoftwareKind) care.minimumSystem = cached.minimumOsVersion;
  return care;
}

/// What the last check of the watchlist found, unless My Apps was asked for since.
void markGone(std::vector<AppRow>& rows, const std::vector<OwnedRow>& owned,
              const std::vector<WatchedApp>& unsold, const RowContext& context) {
  std::map<AppKey, std::optional<Instant>> gone;
  for (const WatchedApp& each : unsold) gone.emplace(keyOf(each), each.lastCheckedAt);
  for (std::size_t i = 0; i < rows.size(); ++i) {
    AppRow& row = rows[i];
    const auto found = gone.find(row.key.app);
    if (found == gone.end() || owned[i].app.lastCheckedAt > found->second) continue;
    row.marks.setFlag(RowMark::notSold);
    row.care->gone = goneText(found->second, context);
  }
}

std::vector<AppRow> rowsOf(const std::vector<OwnedRow>& owned, const RowContext& context,
                           const FolderScans& scans) {
  const LocaleFormats formats(context.locale);
  std::vector<AppRow> rows;
  rows.reserve(owned.size());
  for (const OwnedRow& each : owned) rows.push_back(ownedAppRow(each, context, formats, scans));
  return rows;
}

TouchedRows touchedBy(const LibraryChanges& changes) {
  std::set<AppKey> apps = changes.ownedApps;
  apps.insert(changes.watchedApps.begin(), changes.watchedApps.end());
  apps.insert(changes.cachedApps.begin(), changes.cachedApps.end());
  return apps;
}

}  // namespace

AppRow ownedAppRow(const OwnedRow& owned, const RowContext& context, const LocaleFormats& formats,
                   const FolderScans& scans) {
  const OwnedApp& app = owned.app;
  const MaintenanceHealth health = healthOf(owned.cached, context);
  AppRow row = rowOfApp(app);
  addCached(row, owned.cached);
  row.detail = detailOf(app, health, isMissing(app, scans));
  row.marks = marksOf(owned, health);
  if (row.marks.testFlag(RowMark::updateAvailable))
    row.badge = tr("%1 available").arg(plainLine(app.storeVersion));
  row.price = priceCell({}, app.priceWhenAdded, app.currency, formats);
  row.price.kind = PriceKind::paid;
  row.bytes = app.installedSizeBytes;
  if (row.bytes) row.aside = QString::fromStdString(formats.byteCount(*row.bytes));
  row.added = app.addedAt;
  row.care = careOf(owned, health, context);
  row.marks.setFlag(RowMark::needsRosetta, row.care->needsRosetta == true);
  row.marks.setFlag(RowMark::notSold, !row.care->gone.isEmpty());
  row.folded = foldedText({row.name, row.seller, plainLine(app.bundleId)});
  return row;
}

RowSource myAppsSource(const RowContext& context, const FolderScans& scans) {
  return {.all =
              [context, scans](auto& database) {
                const auto owned = ownedRows(database);
                auto rows = rowsOf(owned, context, scans);
                markGone(rows, owned, unsoldApps(database), context);
                return rows;
              },
          .ofApps =
              [context, scans](auto& database, const auto& apps) {
                const auto owned = ownedRowsOf(database, apps);
                auto rows = rowsOf(owned, context, scans);
                markGone(rows, owned, unsoldApps(database), context);
                return rows;
              },
          .touched = touchedBy};
}

RowTable myAppsTable() {
  return {.layout = {},
          .sorts = kSorts,
          .chips = kChips,
          .empty = {"grid", QT_TRANSLATE_NOOP("Rows", "My Apps is empty."),
                    QT_TRANSLATE_NOOP("Rows", "The apps that you own appear here."),
                    QT_TRANSLATE_NOOP("Rows", "Scan Applications Folder"), "scan-applications",
                    kOffers}};
}

}  // namespace quillet
