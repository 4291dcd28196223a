// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <gtest/gtest.h>

#include <QImage>
#include <QString>

namespace quillet {

/// Whether `actual` looks like the kept picture of that name (tests/pictures/NAME.png): almost all
/// pixels within 8 steps of each channel, and nowhere many others together. Else writes what was
/// drawn, and where it differs, beside the test program. With QUILLET_RENEW_PICTURES set, keeps it
/// instead.
[[nodiscard]] testing::AssertionResult looksLike(const QString& name, const QImage& actual);

}  // namespace quillet
