// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/frame/watch_editor.h"

#include <QMenu>
#include <algorithm>
#include <map>

#include "desktop/models/app_listing.h"
#include "desktop/models/row_filter_model.h"
#include "desktop/page/watch_button.h"

namespace quillet {

namespace {

std::set<AppKey> keysOf(const std::vector<WatchedApp>& apps) {
  std::set<AppKey> keys;
  for (const WatchedApp& app : apps) keys.insert(keyOf(app));
  return keys;
}

/// The row of each app that the list shows.
std::map<AppKey, const AppRow*> rowsOf(const RowFilterModel* rows) {
  std::map<AppKey, const AppRow*> found;
  for (int i = 0; rows != nullptr && i < rows->rowCount(); ++i)
    found.emplace(rows->at(i).key.app, &rows->at(i));
  return found;
}

}  // namespace

WatchEditor::WatchEditor(const ViewWorld& world, const Guide& guide, AppPage& page, QWidget& window)
    : world_{world, std::make_shared<const LocaleFormats>(world.locale)},
      guide_(guide),
      page_(page),
      window_(window) {
  connect(&world.library, &LibraryGateway::changed, this, [this](const LibraryChanges& changes) {
    if (!changes.watchedApps.empty()) want();
  });
  connect(&world.library, &LibraryGateway::changedElsewhere, this, &WatchEditor::want);
}

void WatchEditor::follow() {
  std::vector<AppKey> chosen;
  if (guide_.section() != nullptr) chosen = guide_.section()->chosen();
  if (chosen == chosen_) return;
  chosen_ = std::move(chosen);
  watched_.clear();
  willToggle_ = false;
  isKnown_ = chosen_.empty();
  want();
  Q_EMIT changed();
}

/// One reading at a time: of choices that are passed by while it lasts, only the last is read.
void WatchEditor::want() {
  if (chosen_.empty()) return;
  isStale_ = isReading_;
  if (!isReading_) detach(read(this, chosen_), "Which apps are watched");
}

Task<> WatchEditor::read(QPointer<WatchEditor> editor, std::vector<AppKey> apps) {
  editor->isReading_ = true;
  std::vector<WatchedApp> watched;
  try {
    watched = co_await editor->world_.view.library.read(watchedAppsOf, apps);
  } catch (const DatabaseError&) {
    watched.clear();
  }
  if (!editor) co_return;
  editor->isReading_ = false;
  if (editor->chosen_ == apps && !editor->isStale_) editor->take(std::move(watched));
  if (editor && std::exchange(editor->isStale_, false)) editor->want();
}

void WatchEditor::take(std::vector<WatchedApp> watched) {
  watched_ = std::move(watched);
  isKnown_ = true;
  Q_EMIT changed();
  if (std::exchange(willToggle_, false)) toggle();
}

QString WatchEditor::toggleText() const {
  const bool stops = canChange() && unwatchedCount() == 0;
  const auto count = static_cast<int>(stops ? watched_.size() : unwatchedCount());
  if (stops) return count > 1 ? tr("Stop Watching %n Apps", nullptr, count) : tr("Stop Watching");
  return count > 1 ? tr("Watch %n Apps", nullptr, count) : tr("Watch");
}

/// Somebody is faster than the library.
void WatchEditor::toggle() {
  if (!isKnown_) {
    willToggle_ = true;
    return;
  }
  const ViewWorld& view = world_.view;
  if (unwatchedCount() == 0) return view.edits.perform(stopEdit(watchedKeys(), names()));
  const std::vector<NamedKey> apps = unwatched();
  watch(apps, tr("Nothing is known of %1 yet.").arg(phraseOf(apps)));
}

void WatchEditor::add(const std::vector<NamedKey>& apps) {
  watch(apps, tr("You watch %1 already.").arg(phraseOf(apps)));
}

void WatchEditor::watch(const std::vector<NamedKey>& apps, const QString& unchanged) {
  const QString what = phraseOf(apps);
  world_.view.edits.perform({tr("Watch %1").arg(what), tr("Watching %1.").arg(what),
                             tr("%1: not watched.").arg(what), watchingThese(apps), unchanged});
}

/// As the list tells of them; those of which it has no row, as the library does.
EditStep WatchEditor::watchingThese(const std::vector<NamedKey>& apps) const {
  const ViewWorld& view = world_.view;
  const auto rows = rowsOf(guide_.section()->rows());
  std::vector<AppToWatch> listed;
  std::vector<NamedKey> others;
  for (const NamedKey& each : apps) {
    const auto row = rows.find(each.app);
    if (row == rows.end()) {
      others.push_back(each);
    } else {
      listed.push_back(toWatch(*row->second, view.records));
    }
  }
  const WatchOptions options = watchDefaults(view.settings);
  return together({watchingNew(std::move(listed), options, view.clock.now()),
                   watchingListed(appsToList(others, view), options)});
}

std::vector<NamedKey> WatchEditor::unwatched() const {
  const std::set<AppKey> watched = keysOf(watched_);
  std::vector<NamedKey> apps = guide_.section()->named();
  std::erase_if(apps, [&](const NamedKey& each) {
    return watched.contains(each.app) || std::ranges::find(chosen_, each.app) == chosen_.end();
  });
  return apps;
}

std::vector<AppKey> WatchEditor::watchedKeys() const {
  std::vector<AppKey> keys;
  for (const WatchedApp& app : watched_) keys.push_back(keyOf(app));
  return keys;
}

WatchedNames WatchEditor::names() const {
  return {nameLine(watched_.front().name), watched_.size()};
}

void WatchEditor::showOptions() {
  if (!canChange()) return;
  const PageFacts* facts = page_.facts();
  const bool isPages = chosen_.size() == 1 && facts != nullptr && facts->app == chosen_.front();
  if (isPages && page_.isVisible()) return page_.openWatchOptions();
  const std::optional<double> lowest = isPages ? lowestRecorded(*facts) : std::nullopt;
  (new WatchOptionsDialog(world_, watched_, lowest, &window_))->open();
}

void WatchEditor::mute(MuteSpan span) { setMute(mutedUntil(span, world_.view.clock.now())); }

void WatchEditor::turnOnAlerts() { setMute(std::nullopt); }

void WatchEditor::setMute(std::optional<Instant> until) {
  if (canChange()) world_.view.edits.perform(muteEdit(watchedKeys(), names(), until));
}

bool WatchEditor::isAnyMuted() const {
  const Instant now = world_.view.clock.now();
  return std::ranges::any_of(watched_, [now](const WatchedApp& app) { return isMuted(app, now); });
}

QMenu* makeMuteMenu(WatchEditor& editor, QWidget* parent) {
  auto* menu = new QMenu(WatchEditor::tr("Mute Alerts"), parent);
  menu->menuAction()->setObjectName(QStringLiteral("mute-alerts"));
  for (const MuteChoice& choice : kMuteChoices) {
    QObject::connect(menu->addAction(watchWord(choice.text)), &QAction::triggered, &editor,
                     [&editor, span = choice.span] { editor.mute(span); });
  }
  menu->addSeparator();
  QAction* turnOn = menu->addAction(WatchEditor::tr("Turn On Alerts"));
  QObject::connect(turnOn, &QAction::triggered, &editor, &WatchEditor::turnOnAlerts);
  const auto update = [menu, turnOn, &editor] {
    menu->menuAction()->setEnabled(editor.canChange());
    for (QAction* action : menu->actions()) action->setEnabled(editor.canChange());
    turnOn->setEnabled(editor.isAnyMuted());
  };
  update();
  QObject::connect(&editor, &WatchEditor::changed, menu, update);
  return menu;
}

}  // namespace quillet
