// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QListView>
#include <QPersistentModelIndex>
#include <QPointer>
#include <QTimer>
#include <optional>
#include <vector>

#include "desktop/images/image_store.h"
#include "desktop/models/row_filter_model.h"

namespace quillet {

class AppRowDelegate;
class NoteEditor;

/// Rows of a list from `first` to `last`, none for -1.
struct RowRange {
  int first = -1;
  int last = -1;

  friend bool operator==(const RowRange&, const RowRange&) = default;
};

/// The rows of a list, as they scroll. Whatever comes, goes or moves among them, the rows that are
/// looked at stay where they are on the screen, and those that are chosen stay chosen.
class AppListView : public QListView {
  Q_OBJECT

 public:
  /// `name` is what it is called for those who do not see it. The rows and the pictures outlive it.
  AppListView(const QString& name, RowFilterModel& rows, ImageStore& images);

  [[nodiscard]] std::optional<RowKey> currentKey() const;
  /// Whose rows are chosen, from top to bottom.
  [[nodiscard]] std::vector<RowKey> chosenKeys() const;
  /// That row alone, or none for -1.
  void chooseRow(int row);
  void bringIntoSight(int row);

  [[nodiscard]] RowAnchor anchor() const;
  /// Nothing where its row is not shown.
  void setAnchor(const RowAnchor& anchor);
  /// The beginning, and as far below as the current row asks for.
  void scrollToCurrent();
  /// Where all chosen rows went, chooses what stands in the place of the current one; where there
  /// was none, the first. To be called when rows came or went.
  void settle();

  [[nodiscard]] RowRange seen() const;

  /// Lets the user edit the note of a row in its place. It ends where the row goes.
  void editNote(const RowKey& row, const QString& note);

  // For the delegate.
  [[nodiscard]] const QPersistentModelIndex& hovered() const { return hovered_; }
  [[nodiscard]] bool hasHairlineBelow(int row) const;
  [[nodiscard]] bool isNoteEdited(const QModelIndex& index) const;

  /// Of the day above a row there is none.
  [[nodiscard]] QModelIndex indexAt(const QPoint& point) const override;
  void doItemsLayout() override;
  void reset() override;

 Q_SIGNALS:
  /// Enter or a double click.
  void opened(const quillet::RowKey& row);
  /// Other rows are chosen, or another one is current.
  void chosenChanged();
  /// The list rested for a moment after it was scrolled, filled, changed or resized.
  void rested();
  /// The user clicked the mark that tells whether the row's app is watched.
  void watchClicked(const quillet::RowKey& row);
  /// The user wrote the note of a row.
  void noteWritten(const quillet::RowKey& row, const QString& note);
  /// Of those chosen. `at` is a point of the screen.
  void menuAsked(const QPoint& at);

 protected:
  bool viewportEvent(QEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;
  void contextMenuEvent(QContextMenuEvent* event) override;
  void startDrag(Qt::DropActions actions) override;
  void resizeEvent(QResizeEvent* event) override;
  void showEvent(QShowEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;
  void scrollContentsBy(int dx, int dy) override;
  void selectionChanged(const QItemSelection& selected, const QItemSelection& deselected) override;
  void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;
  void rowsAboutToBeRemoved(const QModelIndex& parent, int start, int end) override;

 private:
  /// A row that is seen, and where.
  struct Sighting {
    RowKey key;
    int top = 0;
  };

  [[nodiscard]] int rowAt(int y) const;
  [[nodiscard]] int topOf(int row) const;
  [[nodiscard]] bool isLit(int row) const;
  void rememberSight();
  void restoreSight();
  void forgetSight();
  void setHovered(const QModelIndex& index);
  void repaintWithNeighbour(const QModelIndex& index);
  void repaintPicture(const ImageKey& key);
  bool takeWatchClick(const QMouseEvent& event);
  void endNote();

  RowFilterModel& rows_;
  AppRowDelegate* delegate_;
  bool isChanging_ = false;           ///< rows come, go or move, and were not laid out since
  std::vector<Sighting> sight_;       ///< what is to stay in place meanwhile
  QPersistentModelIndex substitute_;  ///< below the current row, where that is being removed
  bool lostCurrent_ = false;
  QPersistentModelIndex hovered_;
  QPersistentModelIndex noted_;  ///< the row whose note is edited
  QPointer<NoteEditor> note_;
  QTimer rest_;
};

}  // namespace quillet
