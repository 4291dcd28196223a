// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QByteArray>
#include <QHash>

namespace quillet {

/// Which glyph stands for which where figures are to be equally wide: what the feature "tnum" of an
/// OpenType font substitutes one by one. `substitutions` is the font's table GSUB, as it is in the
/// file; empty for a font without one, without the feature, or with a damaged table.
[[nodiscard]] QHash<quint32, quint32> tabularGlyphs(const QByteArray& substitutions);

}  // namespace quillet
