// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QImage>
#include <QRectF>
#include <vector>

#include "sandbox/drawing/icon_design.h"
#include "sandbox/drawing/subject.h"

class QPainter;

namespace quillet::sandbox {

/// An app's icon: a square without round corners, which are cut where it is shown.
[[nodiscard]] QImage drawIcon(const Subject& subject, int side);

/// The icon of a bundle: those of its first apps, in a square.
[[nodiscard]] QImage drawBundleIcon(const std::vector<Subject>& apps, int side);

/// Ground and backdrop of an icon, on all of the square.
void paintGround(QPainter& painter, const QRectF& square, const IconDesign& design);

/// What an icon shows, as large as in an icon of that square.
void paintMotif(QPainter& painter, const QRectF& square, const IconDesign& design);

}  // namespace quillet::sandbox
