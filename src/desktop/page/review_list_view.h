// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QCache>
#include <QListView>
#include <QPersistentModelIndex>
#include <QTimer>
#include <set>

#include "desktop/models/review_list_model.h"
#include "desktop/page/review_card.h"

namespace quillet {

/// Reviews, as they scroll. What is seen is measured before it is painted; how high the others are
/// is guessed first and measured in spare moments, so that a list of many long ones never holds the
/// window. Whatever comes above them, the reviews that are looked at stay where they are.
class ReviewListView : public QListView {
  Q_OBJECT

 public:
  /// `name` is what it is called for those who do not see it. The model outlives it.
  ReviewListView(const QString& name, ReviewListModel& reviews);

  /// Where a row's texts stand; the card of a review is kept for a while.
  [[nodiscard]] const ReviewCard& cardOf(int row) const;
  [[nodiscard]] QRect contentOf(const QRect& row) const;
  /// "More" or "Less" below a review; empty where all of it is shown.
  [[nodiscard]] QString foldTextOf(int row) const;
  /// Measured or guessed.
  [[nodiscard]] int heightOf(int row) const;
  /// Whether all rows have been measured.
  [[nodiscard]] bool isMeasured() const;

  /// Copies the current review; nothing where another row is current.
  void copyCurrent() const;

  void doItemsLayout() override;
  void reset() override;
  void scrollTo(const QModelIndex& index, ScrollHint hint = EnsureVisible) override;

 Q_SIGNALS:
  /// The end of a storefront was pressed.
  void moreAsked(int storefront);
  /// The user scrolled to where the last row is near.
  void endNear();

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void contextMenuEvent(QContextMenuEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void changeEvent(QEvent* event) override;
  void scrollContentsBy(int dx, int dy) override;
  void rowsInserted(const QModelIndex& parent, int start, int end) override;
  void dataChanged(const QModelIndex& topLeft, const QModelIndex& bottomRight,
                   const QList<int>& roles) override;

 private:
  using Key = quint64;

  [[nodiscard]] Key keyOf(int row) const;
  [[nodiscard]] int contentWidth() const;
  [[nodiscard]] int guessOf(int row) const;
  [[nodiscard]] int measured(int row) const;
  [[nodiscard]] bool isUnfolded(int row) const { return unfolded_.contains(keyOf(row)); }
  bool measureSeen();
  bool measure(int row);
  void measureSome();
  void forgetMeasures();
  void layOutAnew();
  void rememberAnchor();
  void restoreAnchor();
  void press(const QModelIndex& index);
  void setUnfolded(int row, bool isUnfolded);

  ReviewListModel& reviews_;
  mutable QCache<Key, ReviewCard> cards_;
  QHash<Key, int> heights_;
  std::set<Key> unfolded_;
  QPersistentModelIndex anchor_;  ///< the first row that is seen
  int anchorTop_ = 0;
  int laidWidth_ = -1;
  bool isPlacing_ = false;  ///< whether what scrolls is this, not the user
  QTimer spare_;
};

}  // namespace quillet
