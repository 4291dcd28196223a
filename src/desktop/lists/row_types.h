// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include "desktop/look/type_styles.h"

namespace quillet {

// The kinds of text in rows.

inline constexpr TypeStyle kHeadingType{11.5, 600};
inline constexpr TypeStyle kRankType{20, 600, 0, Digits::tabular};
inline constexpr TypeStyle kPriceType = kControlType.tabular();
inline constexpr TypeStyle kDetailType = kFactType.tabular();
inline constexpr TypeStyle kAsideType = kCaptionType.tabular();
inline constexpr TypeStyle kDealLowType = kDetailType.weighing(500);
inline constexpr TypeStyle kDealWasType = kBodyType.tabular();
inline constexpr TypeStyle kNoteType{12.5};

}  // namespace quillet
