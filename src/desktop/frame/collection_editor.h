// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QObject>
#include <functional>
#include <vector>

#include "desktop/frame/counts_feed.h"
#include "desktop/frame/guide.h"
#include "desktop/models/app_texts.h"
#include "desktop/models/view_world.h"

class QMenu;

namespace quillet {

class CollectionChooser;
struct NameQuestion;

/// What the user does with collections, and with apps in them.
class CollectionEditor : public QObject {
  Q_OBJECT

 public:
  /// All outlive the editor; questions stand before `window`.
  CollectionEditor(const ViewWorld& world, Guide& guide, const CountsFeed& counts, QWidget& window);

  /// The one whose apps are shown; 0 for none.
  [[nodiscard]] RowId shown() const;
  /// That, or the one chosen in the overview; 0 for none.
  [[nodiscard]] RowId current() const;

  /// Asks for the name and symbol of a new one, which `apps` are put into.
  void make(std::vector<NamedKey> apps = {}, const QString& name = {});

  // Of one that is gone nothing is done.
  void open(RowId key);
  void edit(RowId key);
  void duplicate(RowId key);
  void remove(RowId key);
  /// What can be done with one, where it is asked with the pointer.
  void showMenu(RowId key, const QPoint& at);

  void add(RowId key, const std::vector<NamedKey>& apps);
  void move(RowId from, RowId to, const std::vector<NamedKey>& apps);
  /// Lets the user find the collection by its name.
  void choose(std::vector<NamedKey> apps);

  using Apps = std::function<std::vector<NamedKey>()>;
  /// Fills a menu with all collections, to put into them what `apps` says then.
  void fillAdding(QMenu& menu, const Apps& apps);
  /// Likewise with all others than the one that is shown.
  void fillMoving(QMenu& menu, const Apps& apps);

 private:
  /// What the user decided of a collection.
  struct Draft {
    std::string name;
    std::string symbol;
    RowId taken = 0;  ///< another one has this name; 0 for none
  };

  [[nodiscard]] const CollectionCount* find(RowId key) const;
  [[nodiscard]] RowId named(const QString& name, RowId but) const;
  [[nodiscard]] QStringList names(RowId but = 0) const;
  void ask(NameQuestion question, const std::string& symbol, RowId key,
           std::function<void(const Draft&)> take);
  void makeFrom(const Draft& draft, const std::vector<NamedKey>& apps);
  void fill(QMenu& menu, RowId but, const std::function<void(RowId)>& act);
  void openAwaited();

  ViewWorld world_;
  Guide& guide_;
  const CountsFeed& counts_;
  QWidget& window_;
  CollectionChooser* chooser_;
  QString awaited_;  ///< the name of one that was made, to be shown; empty for none
};

}  // namespace quillet
