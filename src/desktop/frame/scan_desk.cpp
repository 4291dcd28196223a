// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/frame/scan_desk.h"

#include <algorithm>
#include <utility>

#include "analysis/app_build.h"
#include "base/errors.h"
#include "base/store_links.h"
#include "base/text.h"
#include "desktop/dialogs/scan_result_window.h"
#include "desktop/frame/name_dialog.h"
#include "desktop/look/widgets.h"
#include "desktop/models/row_parts.h"
#include "desktop/models/scan_words.h"
#include "net/worker.h"
#include "queries/app_lookup.h"
#include "scan/applications_folders.h"

namespace quillet {

namespace {

constexpr int kLongestLink = 2000;

/// What the store knows of an app that the user named.
BundleMatch matchOf(const ITunesApp& app, const InstalledBundle& bundle) {
  const Platform platform = identityOf(bundle).platform;
  return {MatchKind::found, app, describesBuild(app, platform) ? app.version : std::nullopt};
}

QString appsText(std::size_t count) {
  return count == 1 ? ScanDesk::tr("1 app") : ScanDesk::tr("%1 apps").arg(count);
}

QString busyText() { return ScanDesk::tr("A scan runs. Try again when it has ended."); }

}  // namespace

ScanDesk::ScanDesk(const ViewWorld& world, QWidget& window)
    : world_(world), window_(window), question_(world.store, world.clock) {
  connect(&world.installed, &InstalledApps::changed, this, &ScanDesk::noteScan);
  connect(&world.installed, &InstalledApps::scanned, this, &ScanDesk::show);
  connect(&question_, &StoreQuestion::stateChanged, this, &ScanDesk::tellQuestion);
}

void ScanDesk::noteScan() {
  if (std::exchange(wasScanning_, isScanning()) != isScanning()) Q_EMIT changed();
}

void ScanDesk::scan() {
  if (isScanning()) return world_.installed.stop();
  if (world_.installed.hasFolders()) return world_.installed.scan(ScanCause::user);
  detach(propose(this), "Folders with applications");
}

Task<> ScanDesk::propose(QPointer<ScanDesk> desk) {
  const FolderList folders =
      co_await onWorker([] { return applicationsFoldersOn(mountFolders()); });
  if (!desk) co_return;
  folders.empty() ? desk->chooseFolder() : desk->scanFolders(folders);
}

void ScanDesk::chooseFolder() {
  const FolderList chosen = chosenFolders(world_.settings);
  const char* home = "/";
  world_.prompts.chooseFolder(
      {tr("Choose an Applications Folder"), chosen.empty() ? home : chosen.back().parent_path()},
      this, [this](const std::filesystem::path& folder) { take(folder); });
}

void ScanDesk::take(const std::filesystem::path& folder) { scanFolders({folder}); }

/// They are remembered among the chosen ones.
void ScanDesk::scanFolders(const FolderList& folders) {
  FolderList all = chosenFolders(world_.settings);
  for (const auto& each : folders) {
    if (std::ranges::find(all, each) == all.end()) all.push_back(each);
  }
  try {
    writeFolders(world_.settings, all);
  } catch (const BadSetting& error) {
    Q_EMIT said(QString::fromUtf8(error.what()));
  }
  if (isScanning()) return Q_EMIT said(busyText());
  world_.installed.scanFolders(folders, ScanCause::user);
}

void ScanDesk::look(const FolderList& bundles) {
  if (isScanning()) return Q_EMIT said(busyText());
  world_.installed.look(bundles);
}

/// What came by itself is told in the list alone.
void ScanDesk::show(const ScanOutcome& outcome) {
  if (outcome.cause == ScanCause::start) return;
  if (outcome.apps.empty()) {
    const QString problem = scanProblem(outcome);
    return Q_EMIT said(problem.isEmpty() ? tr("No apps were found there.") : problem);
  }
  delete result_;
  result_ = new ScanResultWindow(outcome, world_.storefront(), &window_);
  connect(result_, &ScanResultWindow::searched, this, &ScanDesk::searched);
  connect(result_, &ScanResultWindow::linkAsked, this, &ScanDesk::askForLink);
  connect(result_, &ScanResultWindow::ignored, this, &ScanDesk::ignore);
  connect(result_, &QDialog::accepted, this, [this] { apply(*result_); });
  bringUp(*result_);
}

/// As one edit, to be undone as one.
void ScanDesk::apply(const ScanResultWindow& result) {
  const std::vector<OwnedApp> wanted = result.wanted();
  const std::vector<AppKey> unwanted = result.unwanted();
  if (wanted.empty() && unwanted.empty()) return;
  std::vector<EditStep> steps;
  if (!wanted.empty()) steps.push_back(owning(wanted));
  if (!unwanted.empty()) steps.push_back(disowning(unwanted));
  QString done = tr("Added %1 to My Apps.").arg(appsText(wanted.size()));
  if (wanted.empty()) done = tr("Removed %1 from My Apps.").arg(appsText(unwanted.size()));
  if (!wanted.empty() && !unwanted.empty())
    done = tr("Added %1 to My Apps and removed %2.")
               .arg(appsText(wanted.size()), appsText(unwanted.size()));
  world_.edits.perform(
      {tr("Scan Result"), done, tr("My Apps was not changed."), together(std::move(steps))});
}

void ScanDesk::askForLink(std::size_t place) {
  auto* dialog = new NameDialog({.title = tr("Set Link"),
                                 .action = tr("Set Link"),
                                 .label = tr("Link to its page in the App Store, or its number"),
                                 .mostLetters = kLongestLink},
                                result_);
  connect(dialog, &QDialog::accepted, this, [this, place, dialog] { link(place, dialog->name()); });
  dialog->open();
}

void ScanDesk::link(std::size_t place, const QString& text) {
  if (!result_) return;
  const std::string typed = text.toStdString();
  const std::string number = trackIdInLink(typed).value_or(typed);
  if (number.empty() || !isTrackId(number))
    return Q_EMIT said(tr("That is no link to an app in the store."));
  const LinkedBundle linked{result_, place, result_->found(place).bundle, result_->outcome().at,
                            world_.storefront()};
  const NamedApp named{number, linked.country, identityOf(linked.bundle).platform};
  question_.ask([named](QueryServices services,
                        QueryCall call) { return findApp(named, services, std::move(call)); },
                [this, linked](std::optional<ITunesApp> app) { takeLinked(linked, app); });
}

/// The result may have been closed by now, or be another scan's.
void ScanDesk::takeLinked(const LinkedBundle& linked, const std::optional<ITunesApp>& app) {
  if (!app)
    return Q_EMIT said(
        tr("The %1 storefront has no such app.").arg(QString::fromStdString(linked.country)));
  const QString name = nameLine(app->trackName);
  world_.edits.perform({tr("Add “%1” to My Apps").arg(name), tr("Added “%1” to My Apps.").arg(name),
                        tr("“%1”: not added to My Apps.").arg(name),
                        owning({scannedAppOf(linked.bundle, matchOf(*app, linked.bundle),
                                             linked.country, linked.at)}),
                        tr("My Apps has “%1” already.").arg(name)});
  if (linked.result) linked.result->settle(linked.place);
}

/// An answer says for itself that it came.
void ScanDesk::tellQuestion() {
  const ListState& state = question_.state();
  if (std::holds_alternative<Loading>(state)) return Q_EMIT said(tr("Looking it up…"));
  if (const auto strip = stripOf(state, world_.clock.now())) Q_EMIT said(strip->text);
}

void ScanDesk::ignore(std::size_t place) {
  const InstalledBundle& bundle = result_->found(place).bundle;
  const std::string id = *bundle.bundleId;
  if (!turn(ignoreBundle, id)) return;
  const QString name = nameLine(bundle.name);
  result_->settle(place);
  LibraryEdit edit{tr("Ignore “%1”").arg(name), tr("Scans pass over “%1” from now on.").arg(name),
                   tr("This cannot be undone."), changingNothing()};
  // The first call is for what is done already.
  edit.beside = [desk = QPointer(this), id, isFirst = true]() mutable {
    if (!desk || std::exchange(isFirst, false)) return;
    const bool isIgnored = ignoredBundles(desk->world_.settings).contains(lowerAscii(id));
    desk->turn(isIgnored ? heedBundle : ignoreBundle, id);
  };
  world_.edits.perform(std::move(edit));
}

bool ScanDesk::turn(void (*change)(WritableSettings&, const std::string&), const std::string& id) {
  try {
    change(world_.settings, id);
    return true;
  } catch (const BadSetting& error) {
    Q_EMIT said(QString::fromUtf8(error.what()));
    return false;
  }
}

}  // namespace quillet
