// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/frame/saved_search_editor.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QMenu>

#include "analysis/filter_labels.h"
#include "base/errors.h"
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

std::optional<SavedSearch> editRow(WriteTransaction& transaction, SavedSearch search) {
  return editSavedSearch(transaction, search);
}

void renameRow(WriteTransaction& transaction, RowId key, const std::string& name) {
  for (SavedSearch& search : savedSearches(transaction.database)) {
    if (search.id != key) continue;
    search.name = name;
    editSavedSearch(transaction, search);
  }
}

/// For those who need no answer.
template <typename Change, typename... Arguments>
Task<> perform(LibraryGateway* library, Change change, Arguments... arguments) {
  co_await library->change(std::move(change), std::move(arguments)...);
}

RemovedRows removeRow(WriteTransaction& transaction, RowId key) {
  return removeSavedSearches(transaction, {key});
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
  const QString notSaved = tr("“%1” was not saved.").arg(searchLine(search.name));
  for (const SavedQuery& saved : saved_.searches()) {
    if (!isNamed(saved, name)) continue;
    search.id = saved.key;
    return change(replace(this, std::move(search)), notSaved);
  }
  change(add(this, std::move(search)), notSaved);
}

void SavedSearchEditor::change(Task<> task, const QString& failure) {
  detach(tell(this, std::move(task), failure), "A saved search");
}

/// All is as it was where the library refuses a change.
Task<> SavedSearchEditor::tell(QPointer<SavedSearchEditor> editor, Task<> task, QString failure) {
  QString reason;
  try {
    co_await task;
  } catch (const DatabaseError& error) {
    reason = QString::fromUtf8(error.what());
  }
  if (editor && !reason.isEmpty()) editor->snackbar_.say(failure + u' ' + reason);
}

Task<> SavedSearchEditor::add(QPointer<SavedSearchEditor> editor, SavedSearch search) {
  const QString name = searchLine(search.name);
  co_await editor->world_.library.change(addSavedSearch, std::move(search));
  if (editor) editor->snackbar_.say(tr("Saved “%1”.").arg(name));
}

Task<> SavedSearchEditor::replace(QPointer<SavedSearchEditor> editor, SavedSearch search) {
  const QString name = searchLine(search.name);
  const std::optional<SavedSearch> before =
      co_await editor->world_.library.change(editRow, std::move(search));
  if (!editor || !before) co_return;
  editor->snackbar_.offer(tr("Replaced “%1”.").arg(name), tr("Undo"), [editor, before] {
    if (editor) editor->restore(editRow, *before);
  });
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
        change(perform(&world_.library, renameRow, key, name.toStdString()),
               tr("“%1” was not renamed.").arg(before));
      });
}

void SavedSearchEditor::remove(RowId key) {
  const SavedQuery* search = saved_.search(key);
  if (search == nullptr) return;
  const QString name = searchLine(search->name);
  change(take(this, key, name), tr("“%1” was not deleted.").arg(name));
}

Task<> SavedSearchEditor::take(QPointer<SavedSearchEditor> editor, RowId key, QString name) {
  const RemovedRows removed = co_await editor->world_.library.change(removeRow, key);
  if (!editor || removed.savedSearches.empty()) co_return;
  editor->snackbar_.offer(tr("Deleted “%1”.").arg(name), tr("Undo"), [editor, removed] {
    if (editor) editor->restore(putBack, removed);
  });
}

template <typename Change, typename Rows>
void SavedSearchEditor::restore(Change change, Rows rows) {
  this->change(perform(&world_.library, change, std::move(rows)), tr("Nothing was undone."));
}

void SavedSearchEditor::copyCommand(RowId key) {
  if (const SavedQuery* search = saved_.search(key)) copy(search->query);
}

void SavedSearchEditor::copyShown() {
  if (canSave()) copy(*guide_.shown());
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
