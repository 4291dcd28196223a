// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QTimer>
#include <QWidget>
#include <memory>
#include <optional>

#include "desktop/lists/section.h"
#include "desktop/models/row_feed.h"
#include "desktop/models/row_filter_model.h"

namespace quillet {

class AppListView;
class CaptionLine;
class ChipBar;
class ListPlaceholder;
class ListStrip;

/// A list of rows with all that belongs to it, from top to bottom: a widget of its section's own,
/// chips with the number of rows at the right, the strip that tells of its state, and the rows, or
/// what stands there while there are none. It asks for prices and pictures of the rows that are
/// seen, and for nothing while it is hidden.
class ListPane : public QWidget {
  Q_OBJECT

 public:
  /// `name` is what the list is called for those who do not see it: "Watchlist". Owns the feed.
  ListPane(const QString& name, const RowTable& table, std::unique_ptr<RowFeed> feed,
           const ViewWorld& world);
  ~ListPane() override;

  /// The feed was asked for other rows. What the place says of view, row and scroll is brought back
  /// when they came.
  void expect(const Place& place);
  /// The same for the rows that are shown.
  void bringBack(const Place& place);
  void refresh();

  void setRowView(const RowView& view);
  [[nodiscard]] const RowView& rowView() const { return filter_.view(); }
  [[nodiscard]] const RowFilterModel& rows() const { return filter_; }
  /// The current row; absent where there is none.
  [[nodiscard]] std::optional<RowKey> current() const;
  [[nodiscard]] RowAnchor anchor() const;
  /// The place with the view, the row and the scroll of this moment, or those that are still to be
  /// brought back.
  [[nodiscard]] Place keptIn(Place place) const;
  /// Each app once, in the order of the rows.
  [[nodiscard]] std::vector<AppKey> chosen() const;
  [[nodiscard]] std::vector<RowKey> chosenRows() const;
  void choose(const RowKey& row);
  void takeFocus();
  /// Lets the user edit the note of a row.
  void editNote(const RowKey& row, const QString& note);

  /// A widget of the section's own above the chips; owned from now on.
  void setHead(QWidget* head);
  /// A line below the chips that tells of all rows; shorter ones follow for lists without room for
  /// it. None leaves no line.
  void setCaption(const QStringList& texts);
  /// One that is seen in the place of the rows where there are none, and none are awaited; owned
  /// from now on.
  void setEmptyView(QWidget* view);
  /// Another sight of the same rows, which stands in the place of the list while it is used; owned
  /// from now on. What is chosen is chosen in the list, too.
  void setBoard(QWidget* board);
  void useBoard(bool isUsed);
  /// A widget of the section's own below the rows; owned from now on.
  void setFoot(QWidget* foot);
  /// One behind the chips, in the place of the number of rows while it is visible; owned from now
  /// on.
  void setBehindChips(QWidget* widget);
  /// Told in the strip while the feed has nothing to tell; Ready for nothing. `action`: the ID of
  /// what its button does.
  void setRemark(const ListState& remark, const QString& action = {});

 Q_SIGNALS:
  /// Another row, view or scroll. Once after a place was brought back, if another row than the
  /// place's is chosen now: there was none, or it is gone.
  void changed();
  void opened(const quillet::RowKey& row);
  /// The apps of the rows that are seen or near, each time the list comes to rest; none once it is
  /// hidden.
  void seen(const std::set<quillet::AppKey>& apps);
  /// Of the rows that are chosen, at that point of the screen.
  void menuAsked(const QPoint& at);
  /// Of what the remark tells.
  void settingsAsked();
  void noteWritten(const quillet::RowKey& row, const QString& note);
  /// The user clicked the mark that tells whether the row's app is watched.
  void watchClicked(const quillet::RowKey& row);
  /// The user wants what the list offers while it is empty: an action, by its ID.
  void actionAsked(const QString& id);

 protected:
  void showEvent(QShowEvent* event) override;
  void hideEvent(QHideEvent* event) override;

 private:
  void bringBackPending();
  void showRows();
  void showState();
  void showAlone(QWidget* shown);
  [[nodiscard]] QWidget* rowsView() const;
  void askForSeen();
  void tellChanged();

  ViewWorld world_;
  std::unique_ptr<RowFeed> feed_;
  RowFilterModel filter_;
  std::optional<Place> pending_;  ///< to be brought back
  QTimer change_;                 ///< several changes of one moment are one
  RowAnchor told_;
  ListState remark_ = Ready{};
  QString remarkAction_;
  ChipBar* chips_;
  CaptionLine* caption_;
  ListStrip* strip_;
  AppListView* view_;
  ListPlaceholder* placeholder_;
  QWidget* head_ = nullptr;
  QWidget* emptyView_ = nullptr;
  QWidget* board_ = nullptr;
  bool usesBoard_ = false;
};

}  // namespace quillet
