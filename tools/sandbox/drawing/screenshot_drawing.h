// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QImage>
#include <QSize>

#include "sandbox/drawing/subject.h"

namespace quillet::sandbox {

/// A window of the app, in the colours of its icon; those of other numbers show other windows. What
/// the window is made for follows from the size: upright ones are drawn for a telephone.
[[nodiscard]] QImage drawScreenshot(const Subject& subject, int number, QSize size);

/// The picture of a story about the app.
[[nodiscard]] QImage drawStory(const Subject& subject, QSize size);

}  // namespace quillet::sandbox
