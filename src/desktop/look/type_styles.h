// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

namespace quillet {

enum class Digits { natural, tabular };

/// One kind of text: sizes and spacing in pixels at a text size of 100 %.
struct TypeStyle {
  double pixels = 13;
  int weight = 400;
  double spacing = 0;  ///< added between letters
  Digits digits = Digits::natural;

  bool operator==(const TypeStyle&) const = default;

  [[nodiscard]] constexpr TypeStyle tabular() const {
    return {pixels, weight, spacing, Digits::tabular};
  }
  [[nodiscard]] constexpr TypeStyle weighing(int other) const {
    return {pixels, other, spacing, digits};
  }
};

// A weight of 700 would get a false bold upon the font's own; 699 finds its Bold without it.
inline constexpr int kBold = 699;

inline constexpr TypeStyle kTitleType{22, kBold, -0.11};
inline constexpr TypeStyle kSectionType{17, kBold, -0.17};
inline constexpr TypeStyle kBlockType{15, 600, -0.075};
inline constexpr TypeStyle kRowType{14, 600, -0.07};
inline constexpr TypeStyle kBodyType{13};
inline constexpr TypeStyle kControlType{13, 500};
inline constexpr TypeStyle kFactType{12};
inline constexpr TypeStyle kSmallControlType{12, 500};
inline constexpr TypeStyle kPillType{12, 600, 0, Digits::tabular};
inline constexpr TypeStyle kCaptionType{11.5};
inline constexpr TypeStyle kGroupType{10.5, 600, 0.63};
inline constexpr TypeStyle kBadgeType{10.5, 600, 0, Digits::tabular};

}  // namespace quillet
