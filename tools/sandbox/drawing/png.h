// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QImage>
#include <string>

namespace quillet::sandbox {

/// The picture as a PNG file: the same bytes for the same picture.
[[nodiscard]] std::string pngOf(const QImage& image);

}  // namespace quillet::sandbox
