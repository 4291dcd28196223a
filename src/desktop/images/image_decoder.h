// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QImage>
#include <string>

namespace quillet {

/// The picture that `bytes` hold (PNG, JPEG or WebP, whatever they are called), made smaller where
/// it is larger than a square of `pixels`. Null for anything else, for what is damaged, and for
/// pictures that would take more than 64 MiB of memory. May be called on any thread.
[[nodiscard]] QImage decodePicture(const std::string& bytes, int pixels);

/// How a file with these bytes is named at its end: "png", "jpg" or "webp"; empty for what is no
/// picture.
[[nodiscard]] std::string pictureEnding(const std::string& bytes);

}  // namespace quillet
