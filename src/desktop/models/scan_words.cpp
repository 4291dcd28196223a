// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/models/scan_words.h"

#include <QCoreApplication>
#include <QLocale>
#include <algorithm>

#include "analysis/update_state.h"
#include "desktop/models/row_parts.h"
#include "desktop/models/time_words.h"

namespace quillet {

namespace {

QString tr(const char* text) { return QCoreApplication::translate("Scan", text); }

QString numberText(std::size_t number) {
  return QLocale().toString(static_cast<qulonglong>(number));
}

QString dayText(Instant then, Instant now, const UtcOffsetAt& zone) {
  constexpr std::chrono::hours kDay{24};
  const QString day = dateText(then, now, zone);
  if (day == dateText(now, now, zone)) return tr("today");
  if (day == dateText(now - kDay, now, zone)) return tr("yesterday");
  return day;
}

QString folderProblem(const ScannedFolder& folder) {
  const QString name = plainLine(folder.folder.string());
  switch (folder.state) {
    case FolderState::read: break;
    case FolderState::empty:
      return tr("“%1” is empty, as where a disk is not mounted. Its apps stay as they are.")
          .arg(name);
    case FolderState::missing: return tr("“%1” is not there. Its apps stay as they are.").arg(name);
    case FolderState::unreadable:
      return tr("“%1” cannot be read whole (%2). Apps that were not found in it stay as they are.")
          .arg(name, plainLine(folder.reason));
  }
  return {};
}

QString failureText(const ScanOutcome& outcome) {
  const ListState state = listStateOf(outcome.failure);
  if (std::holds_alternative<Offline>(state))
    return tr("You're offline: not all apps were looked up in the store.");
  const auto* failed = std::get_if<Failed>(&state);
  const QString why = failed == nullptr ? QString() : failed->message;
  if (!outcome.isWritten)
    return tr("Not all that was found could be written to the library: %1").arg(why);
  return tr("Not all apps were looked up in the store: %1").arg(why);
}

}  // namespace

QString scanCounts(std::size_t bundles, std::size_t matched) {
  if (bundles == 1) return tr("1 bundle read, %1 matched").arg(numberText(matched));
  return tr("%1 bundles read, %2 matched").arg(numberText(bundles), numberText(matched));
}

QString lastScanText(const std::optional<LastScan>& scan, Instant now, const UtcOffsetAt& zone) {
  if (!scan) return {};
  const QString when =
      tr("Last scan %1 %2").arg(dayText(scan->at, now, zone), clockText(scan->at, zone));
  return when + QStringLiteral(" · ") + scanCounts(scan->bundles, scan->matched);
}

QString scanProblem(const ScanOutcome& outcome) {
  QStringList problems;
  if (outcome.failure) problems << failureText(outcome);
  for (const ScannedFolder& each : outcome.folders) problems << folderProblem(each);
  if (outcome.end == ScanEnd::tooMany)
    problems << tr("Only the first %1 bundles were read.").arg(numberText(kMostBundles));
  problems.removeAll(QString());
  return problems.join(u' ');
}

ListState scanState(const InstalledApps& apps) {
  if (!apps.isScanning()) return Ready{};
  const ScanStand& stand = apps.stand();
  return Scanning{stand.done, stand.total, stand.matched, stand.step == ScanStep::measuring};
}

QString reasonText(const FoundApp& app, const std::string& country) {
  switch (app.as) {
    case FoundAs::notInStorefront:
      return tr("Not in the %1 storefront").arg(QString::fromStdString(country));
    case FoundAs::otherBuildAlone: return tr("iPhone record only");
    case FoundAs::noIdentifier: return tr("No identifier");
    case FoundAs::unreadable: return tr("Unreadable list");
    case FoundAs::notAsked: return tr("The store was not asked");
    case FoundAs::offered: return tr("The same ID is in the store");
    case FoundAs::added: return tr("New");
    case FoundAs::known: return tr("In My Apps");
    case FoundAs::ignored: return tr("Ignored");
  }
  return {};
}

bool hasUpdate(const FoundApp& app) {
  return app.row &&
         isUpdateWanted(app.row->installedVersion, app.row->storeVersion, app.row->skippedVersion);
}

}  // namespace quillet
