// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <algorithm>

#include "desktop/look/icons.h"
#include "desktop/look/palette.h"
#include "desktop/look/text_painter.h"

class QWidget;

namespace quillet {

/// Whether what comes and goes moves there.
enum class Motion { full, reduced };

/// What everything that paints needs. One for the application, owned by its style.
struct Look {
  Palette palette{Scheme::light, Contrast::normal};
  TextPainter text;
  Icons icons;
  Motion motion = Motion::reduced;

  /// By how much what holds a line of text grows with it: a smaller text only has more air.
  [[nodiscard]] double growth() const { return std::max(1.0, text.scale()); }

  [[nodiscard]] const QColor& operator[](Token token) const { return palette[token]; }
};

/// The look that the widget is to be painted with: its style's. The style is a QuilletStyle.
[[nodiscard]] Look& lookOf(const QWidget& widget);

}  // namespace quillet
