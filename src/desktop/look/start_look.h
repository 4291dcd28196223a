// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include "desktop/look/palette.h"

namespace quillet {

class QuilletStyle;

/// Before the application object is made, which reads the list of fonts: where Inter is installed
/// as a variable font and as an older one beside it, leaves the older one out for this process. Of
/// two with one name Qt would take now this, now that, and draws the older one darker.
void chooseFonts();

/// After it: gives the application its style, colours, font, focus ring and icon, which belong to
/// it from then on. Called once. `textScale`: 1 for a text size of 100 %.
QuilletStyle& startLook(const Palette& palette, double textScale = 1);

}  // namespace quillet
