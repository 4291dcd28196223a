// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/look/palette.h"

#include <gtest/gtest.h>

namespace quillet {
namespace {

struct Pair {
  Token ink;
  Token ground;
  double smallest;
};

// Texts need 4.5 to 1, what is drawn to be told apart 3 to 1 (WCAG 2, 1.4.3 and 1.4.11).
constexpr std::array kPairs{
    Pair{Token::text, Token::base, 7},
    Pair{Token::text, Token::side, 7},
    Pair{Token::text, Token::raised, 7},
    Pair{Token::text, Token::hover, 7},
    Pair{Token::text, Token::selection, 7},
    Pair{Token::text, Token::sideSelection, 7},
    Pair{Token::secondary, Token::base, 4.5},
    Pair{Token::secondary, Token::side, 4.5},
    Pair{Token::secondary, Token::hover, 4.5},
    Pair{Token::secondary, Token::selection, 4.5},
    Pair{Token::secondary, Token::sideSelection, 4.5},
    Pair{Token::secondary, Token::neutralTint, 4.5},
    Pair{Token::tertiary, Token::base, 4.5},
    Pair{Token::tertiary, Token::side, 4.5},
    Pair{Token::tertiary, Token::hover, 4.5},
    Pair{Token::accentText, Token::base, 4.5},
    Pair{Token::onAccent, Token::accent, 4.5},
    Pair{Token::tintedText, Token::selection, 4.5},
    Pair{Token::down, Token::downTint, 4.5},
    Pair{Token::up, Token::upTint, 4.5},
    Pair{Token::up, Token::base, 4.5},
    Pair{Token::fresh, Token::freshTint, 4.5},
    Pair{Token::fresh, Token::base, 4.5},
    Pair{Token::low, Token::lowTint, 4.5},
    Pair{Token::low, Token::base, 4.5},
    Pair{Token::low, Token::selection, 4.5},
    Pair{Token::neutral, Token::neutralTint, 4.5},
    Pair{Token::tooltipText, Token::tooltip, 7},
    Pair{Token::control, Token::base, 3},
    Pair{Token::control, Token::side, 3},
    Pair{Token::disabled, Token::base, 3},
    Pair{Token::star, Token::base, 3},
    Pair{Token::rowStar, Token::base, 3},
    Pair{Token::secondary, Token::selection, 3},
    Pair{Token::spark, Token::base, 3},
    Pair{Token::good, Token::base, 3},
    Pair{Token::fair, Token::base, 3},
    Pair{Token::weak, Token::base, 3},
    Pair{Token::bad, Token::base, 3},
};

TEST(PaletteTest, EveryTextAndMarkStandsOutFromItsGround) {
  for (const Scheme scheme : {Scheme::light, Scheme::dark}) {
    for (const Contrast contrast : {Contrast::normal, Contrast::more}) {
      const Palette palette(scheme, contrast);
      for (const Pair& pair : kPairs) {
        EXPECT_GE(contrastRatio(palette[pair.ink], palette[pair.ground]), pair.smallest)
            << static_cast<int>(pair.ink) << " on " << static_cast<int>(pair.ground)
            << (scheme == Scheme::dark ? ", dark" : ", light")
            << (contrast == Contrast::more ? ", more contrast" : "");
      }
    }
  }
}

TEST(PaletteTest, CountsContrastAsTheStandardDoes) {
  EXPECT_NEAR(contrastRatio(Qt::black, Qt::white), 21, 1e-9);
  EXPECT_NEAR(contrastRatio(QColor(0x77, 0x77, 0x77), Qt::white), 4.48, 0.005);
}

}  // namespace
}  // namespace quillet
