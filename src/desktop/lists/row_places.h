// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QRectF>
#include <array>

#include "desktop/look/look.h"
#include "desktop/models/row_table.h"

namespace quillet {

enum class RowHeading { none, day };

/// Where the parts of one row go, from left to right; a null rectangle where a part is absent or
/// has no room. No two parts overlap, whatever the row says: those that are told beside the name
/// are left out whole, and name, seller and note are cut.
struct RowPlaces {
  QRectF heading;  ///< the day above the row
  QRectF row;      ///< what is filled under the pointer
  QRectF dot;      ///< of what is unread
  QRectF rank;
  QRectF movement;  ///< below it
  QRectF artwork;
  QRectF name;
  QRectF stars;
  QRectF ratingCount;
  QRectF detailIcon;
  QRectF detail;
  QRectF noteBar;
  QRectF note;
  QRectF badge;
  QRectF was;
  QRectF arrow;  ///< from what it cost to what it costs
  QRectF sparkline;
  QRectF price;  ///< of a pill the whole of it
  QRectF aside;
  QRectF share;  ///< the bar of how much it fell
  QRectF lowMark;
  QRectF lowText;
  QRectF time;
  QRectF watch;                    ///< the mark of what is watched, to be clicked
  std::array<QRectF, 4> pictures;  ///< the smaller ones at the end
};

/// `item`: the whole place that the list gives the row, from edge to edge. Look measures texts.
[[nodiscard]] RowPlaces placesOf(const AppRow& row, const RowLayout& layout, RowHeading heading,
                                 const QRectF& item, Look& look);

/// How high such an item is, with the heading and the note.
[[nodiscard]] int itemHeight(const AppRow& row, const RowLayout& layout, RowHeading heading,
                             const Look& look);
[[nodiscard]] int rowHeight(const RowLayout& layout, const Look& look);
/// Where a note stands from above, in lists that have them.
[[nodiscard]] int noteTop(const RowLayout& layout, const Look& look);
[[nodiscard]] int headingHeight(const Look& look);

}  // namespace quillet
