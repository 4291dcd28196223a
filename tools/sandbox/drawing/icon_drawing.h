// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QImage>
#include <vector>

#include "sandbox/drawing/subject.h"

namespace quillet::sandbox {

/// An app's icon: a square without round corners, which are cut where it is shown.
[[nodiscard]] QImage drawIcon(const Subject& subject, int side);

/// The icon of a bundle: those of its first apps, in a square.
[[nodiscard]] QImage drawBundleIcon(const std::vector<Subject>& apps, int side);

}  // namespace quillet::sandbox
