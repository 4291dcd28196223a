// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QObject>
#include <optional>

#include "desktop/frame/counts_feed.h"
#include "desktop/frame/search_guide.h"
#include "desktop/models/view_world.h"
#include "library/removed_rows.h"

class QMenu;

namespace quillet {

struct NameQuestion;
class Snackbar;

/// What the user does with saved searches: saves the one that is shown, runs, names and deletes
/// them, and takes them along as commands.
class SavedSearchEditor : public QObject {
  Q_OBJECT

 public:
  /// All outlive the editor; questions stand before `window`.
  SavedSearchEditor(const ViewWorld& world, SearchGuide& guide, const CountsFeed& saved,
                    Snackbar& snackbar, QWidget& window);

  /// The saved search that is shown; 0 for none.
  [[nodiscard]] RowId current() const;

  /// Whether a search with a query is shown.
  [[nodiscard]] bool canSave() const;
  /// Asks for its name.
  void save();

  // Of one that is gone nothing is done.
  void run(RowId key);
  /// Somebody else led there: where it is a saved search, that is noted as its use.
  void noteUse(const Place& place);
  void rename(RowId key);
  void remove(RowId key);
  void copyCommand(RowId key);
  /// What can be done with one, where it is asked with the pointer.
  void showMenu(RowId key, const QPoint& at);

 private:
  void ask(const NameQuestion& question, std::function<void(const QString&)> take);
  void keep(const SearchRequest& request, const QString& name);
  void copy(const StoreQuery& query);

  ViewWorld world_;
  SearchGuide& guide_;
  const CountsFeed& saved_;
  Snackbar& snackbar_;
  QWidget& window_;
};

}  // namespace quillet
