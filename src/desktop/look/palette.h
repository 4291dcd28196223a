// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QColor>
#include <QPalette>
#include <array>

#include "base/enum_index.h"

namespace quillet {

/// What a colour is for. Each has one value in each scheme; nothing on screen has another colour.
enum class Token {
  base,           ///< the sheet that content stands on
  side,           ///< around it: sidebar and menu bar
  raised,         ///< boxes on the sheet
  hover,          ///< under the pointer, on base
  sideHover,      ///< and on side
  line,           ///< hairlines, decoration only
  sheetEdge,      ///< between side and base
  edge,           ///< borders of what is also told apart by its text
  control,        ///< borders that alone tell a control apart
  disabled,       ///< texts and marks of what cannot be used now
  text,           ///< and two quieter ones
  secondary,      //
  tertiary,       ///< never on a neutral tint or a selection
  accentText,     ///< links, rings, what is the user's
  accent,         ///< fill below white
  onAccent,       ///< on it
  selection,      //
  sideSelection,  //
  tintedText,     ///< of a tinted button, on selection
  down,           ///< a lower price, and its tint
  downTint,       //
  up,             //
  upTint,         //
  fresh,          ///< new in a list
  freshTint,      //
  low,            ///< the lowest price; warnings
  lowTint,        //
  neutral,        //
  neutralTint,    //
  star,           ///< where ratings are the matter
  rowStar,        ///< where they are an aside
  emptyStar,      //
  selectedEmptyStar,
  spark,        ///< lines of charts in rows
  chartFill,    ///< below a chart's line
  grid,         //
  good,         ///< bars of charts, from good to bad
  fair,         //
  weak,         //
  bad,          //
  artworkEdge,  ///< inside the edge of a picture, translucent
  scrim,        ///< over a window that waits for a dialog
  shadow,       //
  segment,      ///< the chosen one of several
  tooltip,      //
  tooltipText,  //
};
inline constexpr std::size_t kTokens = indexOf(Token::tooltipText) + 1;

enum class Scheme { light, dark };

/// As the desktop asks for it. With more, texts are black or white on plain sheets and borders are
/// as strong as texts.
enum class Contrast { normal, more };

/// The colours of one scheme.
class Palette {
 public:
  Palette(Scheme scheme, Contrast contrast);

  [[nodiscard]] const QColor& operator[](Token token) const { return colors_[indexOf(token)]; }
  [[nodiscard]] Scheme scheme() const { return scheme_; }
  [[nodiscard]] Contrast contrast() const { return contrast_; }

  bool operator==(const Palette&) const = default;

 private:
  Scheme scheme_;
  Contrast contrast_;
  std::array<QColor, kTokens> colors_;
};

/// The same as Qt's own widgets take it.
[[nodiscard]] QPalette widgetPalette(const Palette& palette);

/// `share` (0 to 1) of `other` over `color`.
[[nodiscard]] QColor mixed(const QColor& color, const QColor& other, double share);

/// From 1 (equal) to 21 (black on white), as WCAG 2 counts it; both opaque.
[[nodiscard]] double contrastRatio(const QColor& first, const QColor& second);

}  // namespace quillet
