// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace quillet {

/// The address of the same picture in its largest size, as JPEG. An address that does not end in a
/// size, as "/392x696bb.png", stays as it is.
[[nodiscard]] std::string fullSizeAddress(std::string_view address);

/// The address of the same picture in the smallest of a few sizes that fills a square of `pixels`:
/// of few sizes, so that screens of different ratios find the same files. Likewise for other
/// addresses.
[[nodiscard]] std::string sizedAddress(std::string_view address, int pixels);

struct PictureFormat {
  int width;
  int height;
  std::string_view ending;  ///< "png"
};

/// The address that a template with {w}, {h}, {c} and {f} becomes.
[[nodiscard]] std::string filledTemplate(std::string pattern, const PictureFormat& format);

/// The address of a square picture of an app, as a template stands for it.
[[nodiscard]] std::string artworkAddress(std::string pattern);

/// How wide the picture is for its height, by the size that its address ends in: a guess until the
/// picture is there. Absent where the address names none.
[[nodiscard]] std::optional<double> namedRatio(std::string_view address);

}  // namespace quillet
