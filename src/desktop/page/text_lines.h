// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

#include "desktop/look/text_painter.h"

namespace quillet {

/// A text as lines of at most that width, broken at blanks where it can be; at least one, and of
/// more than `atMost` the last is all that is left, to be elided.
[[nodiscard]] QStringList textLines(TextPainter& painter, const QString& text,
                                    const TypeStyle& type, double width, std::size_t atMost);

}  // namespace quillet
