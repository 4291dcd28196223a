// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/frame/saved_search_editor.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QMenu>

#include "analysis/filter_labels.h"
#include "desktop/frame/name_dialog.h"
#include "desktop/frame/snackbar.h"
#include "desktop/models/row_parts.h"
#include "library/saved_searches.h"

namespace quillet {

namespace {

constexpr qsizetype kLongestName = 60;

/// "markdown, Paid, 4+ stars": of filters that take too long to tell nothing is said.
QString proposedName(const SearchRequest& request) {
  const QString query = plainLine(request.query);
  const std::string filters = filterSummary(request.filters);
  const QString both = query + QStringLiteral(", ") + QString::fromStdString(filters);
  return filters.empty() || both.size() > kLongestName ? query : both;
}

bool isNamed(const SavedQuery& search, const QString& name) {
  return QString::fromStdString(search.name).compare(name, Qt::CaseInsensitive) == 0;
}

/// Those of all others than `key`.
QStringList namesOf(const std::vector<SavedQuery>& searches, RowId key = 0) {
  QStringList names;
  for (const SavedQuery& search : searches) {
    if (search.key != key) names.append(QString::fromStdString(search.name));
  }
  return names;
}

/// For those who need no answer.
template <typename Change, typename... Arguments>
Task<> perform(LibraryGateway* library, Change change, Arguments... arguments) {
  co_await library->change(std::move(change), std::move(arguments)...);
}

}  // namespace

SavedSearchEditor::SavedSearchEditor(const ViewWorld& world, SearchGuide& guide,
                                     const CountsFeed& saved, Snackbar& snackbar, QWidget& window)
    : world_(world), guide_(guide), saved_(saved), snackbar_(snackbar), window_(window) {}

RowId SavedSearchEditor::current() const {
  for (const SavedQuery& search : saved_.searches()) {
    if (guide_.shows(search.query)) return search.key;
  }
  return 0;
}

bool SavedSearchEditor::canSave() const {
  const StoreQuery* shown = guide_.shown();
  return shown != nullptr && !shown->request.query.empty() && !shown->developer;
}

void SavedSearchEditor::save() {
  if (!canSave()) return;
  const SearchRequest request = guide_.shown()->request;
  ask({tr("Save Search"), proposedName(request), tr("Save"), tr("Replace"),
       namesOf(saved_.searches()), tr("A saved search has this name already.")},
      [this, request](const QString& name) { keep(request, name); });
}

void SavedSearchEditor::ask(const NameQuestion& question,
                            std::function<void(const QString&)> take) {
  auto* dialog = new NameDialog(question, &window_);
  connect(dialog, &QDialog::accepted, this,
          [dialog, take = std::move(take)] { take(dialog->name()); });
  dialog->open();
}

void SavedSearchEditor::keep(const SearchRequest& request, const QString& name) {
  SavedSearch search =
      savedSearchOf(request, name.toStdString(), world_.storefront(), world_.clock.now());
  const QString line = searchLine(search.name);
  const QString notSaved = tr("“%1” was not saved.").arg(line);
  for (const SavedQuery& saved : saved_.searches()) {
    if (!isNamed(saved, name)) continue;
    search.id = saved.key;
    return world_.edits.perform({tr("Replace “%1”").arg(line), tr("Replaced “%1”.").arg(line),
                                 notSaved, settingSearch(std::move(search))});
  }
  world_.edits.perform({tr("Save “%1”").arg(line), tr("Saved “%1”.").arg(line), notSaved,
                        addingSearch(std::move(search))});
}

void SavedSearchEditor::run(RowId key) {
  const SavedQuery* search = saved_.search(key);
  if (search == nullptr) return;
  guide_.goTo(search->query);
  detach(perform(&world_.library, markUsed, key, world_.clock.now()), "A saved search");
}

void SavedSearchEditor::noteUse(const Place& place) {
  const auto* query = std::get_if<StoreQuery>(&place.what);
  if (query == nullptr) return;
  for (const SavedQuery& search : saved_.searches()) {
    if (isSameSearch(search.query, *query, world_.storefront()))
      return detach(perform(&world_.library, markUsed, search.key, world_.clock.now()),
                    "A saved search");
  }
}

void SavedSearchEditor::rename(RowId key) {
  const SavedQuery* search = saved_.search(key);
  if (search == nullptr) return;
  ask({tr("Rename Search"),
       QString::fromStdString(search->name),
       tr("Rename"),
       {},
       namesOf(saved_.searches(), key),
       tr("Another saved search has this name.")},
      [this, key, before = searchLine(search->name)](const QString& name) {
        world_.edits.perform({tr("Rename “%1”").arg(before), tr("Renamed “%1”.").arg(before),
                              tr("“%1” was not renamed.").arg(before),
                              renamingSearch(key, name.toStdString())});
      });
}

void SavedSearchEditor::remove(RowId key) {
  const SavedQuery* search = saved_.search(key);
  if (search == nullptr) return;
  const QString name = searchLine(search->name);
  world_.edits.perform({tr("Delete “%1”").arg(name), tr("Deleted “%1”.").arg(name),
                        tr("“%1” was not deleted.").arg(name), removingSearches({key})});
}

void SavedSearchEditor::copyCommand(RowId key) {
  if (const SavedQuery* search = saved_.search(key)) copy(search->query);
}

/// With its storefront, so that it asks the same on another machine.
void SavedSearchEditor::copy(const StoreQuery& query) {
  SearchRequest request = query.request;
  if (!request.country) request.country = world_.storefront();
  QGuiApplication::clipboard()->setText(QString::fromStdString(searchCommandLine(request)));
  snackbar_.say(tr("Copied the command."));
}

void SavedSearchEditor::showMenu(RowId key, const QPoint& at) {
  auto* menu = new QMenu(&window_);
  menu->setAttribute(Qt::WA_DeleteOnClose);
  const auto add = [&](const QString& text, void (SavedSearchEditor::*act)(RowId)) {
    connect(menu->addAction(text), &QAction::triggered, this,
            [this, key, act] { (this->*act)(key); });
  };
  add(tr("Run"), &SavedSearchEditor::run);
  menu->addSeparator();
  add(tr("Rename…"), &SavedSearchEditor::rename);
  add(tr("Delete"), &SavedSearchEditor::remove);
  menu->addSeparator();
  add(tr("Copy as Command"), &SavedSearchEditor::copyCommand);
  menu->popup(at);
}

}  // namespace quillet
