// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QPointer>
#include <QWidget>
#include <functional>
#include <optional>

#include "desktop/lists/section.h"
#include "desktop/models/row_feed.h"
#include "desktop/models/row_filter_model.h"

namespace quillet {

class AppListView;
class ChipBar;
class ListPlaceholder;
class ListStrip;

/// A list of rows with all that belongs to it, from top to bottom: chips with the number of rows at
/// the right, the strip that tells of its state, and the rows, or what stands there while there are
/// none. It asks for prices and pictures of the rows that are seen.
class ListPane : public QWidget {
  Q_OBJECT

 public:
  /// `name` is what the list is called for those who do not see it: "Watchlist".
  ListPane(const QString& name, const RowTable& table, const ViewWorld& world);

  /// Other rows. What the place says of view, row and scroll is brought back when they came.
  void show(RowSource source, const Place& place);
  void refresh();

  void setRowView(const RowView& view);
  [[nodiscard]] const RowView& rowView() const;
  [[nodiscard]] const RowFilterModel& rows() const { return filter_; }
  /// The current row; absent where there is none.
  [[nodiscard]] std::optional<RowKey> current() const;
  [[nodiscard]] RowAnchor anchor() const;
  [[nodiscard]] std::vector<AppKey> chosen() const;
  void choose(const RowKey& row);
  void takeFocus();

  /// A widget of the section's own above the chips; owned from now on.
  void setHead(QWidget* head);

 Q_SIGNALS:
  /// Another row, chip or scroll; not while a place is brought back.
  void changed();
  void opened(const quillet::RowKey& row);

 private:
  ViewWorld world_;
  AppListModel rows_;
  RowFilterModel filter_;
  RowFeed feed_;
};

}  // namespace quillet
