// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QtGlobal>
#include <span>
#include <string_view>

#include "desktop/models/app_row.h"

namespace quillet {

/// One order of a list. The text is marked for translation in the context "Rows".
struct SortChoice {
  std::string_view id;  ///< stored; never changes
  const char* text;
  /// Null for an order in which the rows come already.
  bool (*before)(const AppRow& left, const AppRow& right);
};

/// One chip above a list: set, it leaves the rows with its mark. Text as of SortChoice.
struct ChipChoice {
  std::string_view id;  ///< stored; never changes
  const char* text;
  RowMark mark;
};

/// Which parts a list's rows have, where there is width for them.
struct RowLayout {
  int height = 64;
  int artwork = 44;
  bool hasSparkline = false;
  int sparklineFrom = 460;  ///< the width from which a list has room for them
  bool hasStars = false;
  bool hasDays = false;    ///< headings above the first row of each day
  bool hasGutter = false;  ///< for the dot of what is unread
  bool hasNotes = false;   ///< rows with a note are higher
  bool hasRanks = false;   ///< a column of places in a chart
  /// Where there is width for them: what it cost and costs, by how much it fell, its low, when, and
  /// whether it is watched, each in a column of its own.
  bool hasDealColumns = false;
};

/// How many rows there are, of one and of others. Text as of SortChoice.
struct CountTexts {
  const char* one;
  const char* many;
  int whole = 0;                ///< as many as such a list has usually
  const char* fewer = nullptr;  ///< said of fewer, in the place of `many`
};

/// One more thing that an empty list offers. Text as of SortChoice.
struct EmptyOffer {
  const char* button;
  const char* action;  ///< the ID of the action that the button is
};

/// What a list shows before it has any row. Text as of SortChoice.
struct EmptyList {
  const char* icon;
  const char* line;
  const char* sentence;
  const char* button = nullptr;  ///< what it offers; null for nothing
  const char* action = nullptr;  ///< the ID of the action that the button is
  std::span<const EmptyOffer> more = {};
};

/// All that tells one list of rows from another. Of sorts the first is the list's own; without any
/// the rows stay as they were read.
struct RowTable {
  RowLayout layout;
  std::span<const SortChoice> sorts;
  std::span<const ChipChoice> chips;
  EmptyList empty;
  CountTexts count{QT_TRANSLATE_NOOP("Rows", "1 app"), QT_TRANSLATE_NOOP("Rows", "%1 apps")};
};

}  // namespace quillet
