// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/frame/collection_editor.h"

#include <QMenu>
#include <algorithm>

#include "desktop/frame/collection_chooser.h"
#include "desktop/frame/collection_dialog.h"
#include "desktop/look/widgets.h"
#include "desktop/models/app_listing.h"
#include "desktop/models/collection_symbol.h"
#include "desktop/models/row_parts.h"
#include "library/collection_steps.h"

namespace quillet {

namespace {

QString nameOf(const CollectionCount& collection) {
  return QString::fromStdString(collection.name).simplified();
}

bool isSameName(const QString& one, const QString& other) {
  return one.compare(other, Qt::CaseInsensitive) == 0;
}

/// "Writing copy", "Writing copy 2": one that none has.
std::string copyName(const std::string& name, const std::vector<std::string>& taken) {
  const QString line = QString::fromStdString(name).simplified();
  QString copy = CollectionEditor::tr("%1 copy").arg(line);
  const auto isTaken = [&](const std::string& each) {
    return isSameName(QString::fromStdString(each).simplified(), copy);
  };
  for (int i = 2; std::ranges::any_of(taken, isTaken); ++i)
    copy = CollectionEditor::tr("%1 copy %2").arg(line, QString::number(i));
  return copy.toStdString();
}

}  // namespace

CollectionEditor::CollectionEditor(const ViewWorld& world, Guide& guide, const CountsFeed& counts,
                                   QWidget& window)
    : world_(world),
      guide_(guide),
      counts_(counts),
      window_(window),
      chooser_(new CollectionChooser(counts, window)) {
  connect(chooser_, &CollectionChooser::chosen, this, &CollectionEditor::add);
  connect(chooser_, &CollectionChooser::newAsked, this,
          [this](const QString& name, const std::vector<NamedKey>& apps) { make(apps, name); });
  connect(&counts, &CountsFeed::changed, this, &CollectionEditor::openAwaited);
  connect(&world_.edits, &EditHistory::failed, this, [this] { awaited_.clear(); });
}

RowId CollectionEditor::shown() const {
  const Place& here = guide_.here();
  const auto* key = std::get_if<RowId>(&here.what);
  return here.section == SectionId::collections && key != nullptr ? *key : 0;
}

RowId CollectionEditor::current() const {
  const Place& here = guide_.here();
  if (here.section != SectionId::collections || shown() != 0) return shown();
  const RowId chosen = here.chosen ? here.chosen->row : 0;
  return find(chosen) == nullptr ? 0 : chosen;
}

void CollectionEditor::make(std::vector<NamedKey> apps, const QString& name) {
  const bool isEmpty = apps.empty();
  ask({tr("New Collection"), name, tr("Create"), isEmpty ? tr("Open It") : tr("Add to It"), names(),
       tr("A collection has this name already.")},
      std::string(kCollectionSymbols.front().name), 0,
      [this, apps = std::move(apps)](const Draft& draft) { makeFrom(draft, apps); });
}

void CollectionEditor::makeFrom(const Draft& draft, const std::vector<NamedKey>& apps) {
  if (draft.taken != 0) return apps.empty() ? open(draft.taken) : add(draft.taken, apps);
  const QString name = collectionLine(draft.name);
  if (apps.empty()) awaited_ = QString::fromStdString(draft.name);
  world_.edits.perform({tr("New Collection “%1”").arg(name), tr("Created “%1”.").arg(name),
                        tr("“%1” was not created.").arg(name),
                        collectingAnew({0, draft.name, draft.symbol, world_.clock.now()},
                                       appsToList(apps, world_))});
}

/// Who makes a collection wants to see it.
void CollectionEditor::openAwaited() {
  if (awaited_.isEmpty()) return;
  const RowId key = named(awaited_, 0);
  if (key == 0) return;
  awaited_.clear();
  open(key);
}

void CollectionEditor::open(RowId key) {
  if (find(key) != nullptr) guide_.goTo(SectionId::collections, key);
}

void CollectionEditor::edit(RowId key) {
  const CollectionCount* collection = find(key);
  if (collection == nullptr) return;
  const QString before = collectionLine(collection->name);
  ask({tr("Rename Collection"), nameOf(*collection), tr("Save"), tr("Open the Other"), names(key),
       tr("Another collection has this name.")},
      collection->symbolName, key, [this, key, before](const Draft& draft) {
        if (draft.taken != 0) return open(draft.taken);
        world_.edits.perform({tr("Rename “%1”").arg(before), tr("Changed “%1”.").arg(before),
                              tr("“%1” was not changed.").arg(before),
                              settingCollection({key, draft.name, draft.symbol, {}})});
      });
}

void CollectionEditor::duplicate(RowId key) {
  const CollectionCount* collection = find(key);
  if (collection == nullptr) return;
  const QString name = collectionLine(collection->name);
  world_.edits.perform({tr("Duplicate “%1”").arg(name), tr("Duplicated “%1”.").arg(name),
                        tr("“%1” was not duplicated.").arg(name),
                        duplicatingCollection(key, world_.clock.now(), copyName)});
}

void CollectionEditor::remove(RowId key) {
  const CollectionCount* collection = find(key);
  if (collection == nullptr) return;
  const QString name = collectionLine(collection->name);
  world_.edits.perform({tr("Delete “%1”").arg(name), tr("Deleted “%1”.").arg(name),
                        tr("“%1” was not deleted.").arg(name), removingCollections({key})});
}

void CollectionEditor::showMenu(RowId key, const QPoint& at) {
  auto* menu = new QMenu(&window_);
  menu->setAttribute(Qt::WA_DeleteOnClose);
  const auto add = [&](const QString& text, void (CollectionEditor::*act)(RowId)) {
    connect(menu->addAction(text), &QAction::triggered, this,
            [this, key, act] { (this->*act)(key); });
  };
  add(tr("Open"), &CollectionEditor::open);
  menu->addSeparator();
  add(tr("Rename…"), &CollectionEditor::edit);
  add(tr("Duplicate"), &CollectionEditor::duplicate);
  add(tr("Delete"), &CollectionEditor::remove);
  menu->popup(at);
}

void CollectionEditor::add(RowId key, const std::vector<NamedKey>& apps) {
  const CollectionCount* collection = find(key);
  if (collection == nullptr || apps.empty()) return;
  const QString name = collectionLine(collection->name);
  const QString what = phraseOf(apps);
  world_.edits.perform(
      {tr("Add %1 to “%2”").arg(what, name), tr("Added %1 to “%2”.").arg(what, name),
       tr("%1: not added to “%2”.").arg(what, name), collecting(key, appsToList(apps, world_)),
       tr("“%1” has %2 already.").arg(name, what)});
}

void CollectionEditor::move(RowId from, RowId to, const std::vector<NamedKey>& apps) {
  const CollectionCount* collection = find(to);
  if (collection == nullptr || from == to || apps.empty()) return;
  const QString name = collectionLine(collection->name);
  const QString what = phraseOf(apps);
  world_.edits.perform(
      {tr("Move %1 to “%2”").arg(what, name), tr("Moved %1 to “%2”.").arg(what, name),
       tr("%1: not moved to “%2”.").arg(what, name), movingEntries(from, to, keysOf(apps))});
}

void CollectionEditor::choose(std::vector<NamedKey> apps) {
  if (!apps.empty()) chooser_->open(std::move(apps));
}

void CollectionEditor::fillAdding(QMenu& menu, const Apps& apps) {
  fill(menu, 0, [this, apps](RowId key) { add(key, apps()); });
  if (!menu.isEmpty()) menu.addSeparator();
  connect(menu.addAction(tr("New Collection…")), &QAction::triggered, this,
          [this, apps] { make(apps()); });
}

void CollectionEditor::fillMoving(QMenu& menu, const Apps& apps) {
  fill(menu, shown(), [this, apps](RowId key) { move(shown(), key, apps()); });
}

void CollectionEditor::fill(QMenu& menu, RowId but, const std::function<void(RowId)>& act) {
  menu.clear();
  for (const CollectionCount& each : counts_.counts().collections) {
    if (each.key == but) continue;
    connect(menu.addAction(controlText(collectionLine(each.name))), &QAction::triggered, this,
            [act, key = each.key] { act(key); });
  }
}

void CollectionEditor::ask(NameQuestion question, const std::string& symbol, RowId key,
                           std::function<void(const Draft&)> take) {
  auto* dialog = new CollectionDialog(std::move(question), symbol, &window_);
  connect(dialog, &QDialog::accepted, this, [this, dialog, key, take = std::move(take)] {
    const QString name = dialog->name();
    take({name.toStdString(), dialog->symbol(), dialog->isTaken() ? named(name, key) : 0});
  });
  dialog->open();
}

const CollectionCount* CollectionEditor::find(RowId key) const {
  const auto& all = counts_.counts().collections;
  const auto found = std::ranges::find(all, key, &CollectionCount::key);
  return found == all.end() ? nullptr : &*found;
}

/// 0 for none.
RowId CollectionEditor::named(const QString& name, RowId but) const {
  for (const CollectionCount& each : counts_.counts().collections) {
    if (each.key != but && isSameName(nameOf(each), name)) return each.key;
  }
  return 0;
}

QStringList CollectionEditor::names(RowId but) const {
  QStringList names;
  for (const CollectionCount& each : counts_.counts().collections) {
    if (each.key != but) names.append(nameOf(each));
  }
  return names;
}

}  // namespace quillet
