// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/look/palette.h"

#include <cmath>

#include "base/enum_index.h"

namespace quillet {

namespace {

/// As 0xAARRGGBB.
struct TokenRow {
  Token token;
  QRgb light;
  QRgb dark;
};

constexpr std::array<TokenRow, kTokens> kRows{{
    {Token::base, 0xFFFFFFFF, 0xFF212328},
    {Token::side, 0xFFF3F4F7, 0xFF1A1C20},
    {Token::raised, 0xFFF8F9FB, 0xFF292C32},
    {Token::hover, 0xFFF5F6F9, 0xFF282B31},
    {Token::sideHover, 0xFFE9EBF0, 0xFF25282D},
    {Token::line, 0xFFE6E8ED, 0xFF33373E},
    {Token::sheetEdge, 0xFFE6E8ED, 0xFF15171A},
    {Token::edge, 0xFFCDD2DB, 0xFF484D57},
    {Token::control, 0xFF868D99, 0xFF7B828F},
    {Token::disabled, 0xFF868D99, 0xFF7B828F},
    {Token::text, 0xFF1B1D22, 0xFFE8EAEF},
    {Token::secondary, 0xFF565C67, 0xFFA8AEBA},
    {Token::tertiary, 0xFF686E79, 0xFF9298A5},
    {Token::accentText, 0xFF4448C8, 0xFFA7ADFF},
    {Token::accent, 0xFF4448C8, 0xFF5B60DB},
    {Token::onAccent, 0xFFFFFFFF, 0xFFFFFFFF},
    {Token::selection, 0xFFE6E7FA, 0xFF30335F},
    {Token::sideSelection, 0xFFDFE1F7, 0xFF2F3262},
    {Token::tintedText, 0xFF4448C8, 0xFFC9CCFF},
    {Token::down, 0xFF0A6B3C, 0xFF6BDA9E},
    {Token::downTint, 0xFFDFF3E7, 0xFF17362A},
    {Token::up, 0xFFA8261D, 0xFFFF9C92},
    {Token::upTint, 0xFFFBE6E3, 0xFF42211F},
    {Token::fresh, 0xFF6A35B0, 0xFFCDAEFF},
    {Token::freshTint, 0xFFEFE7FA, 0xFF33264C},
    {Token::low, 0xFF7A4B00, 0xFFF1BC5C},
    {Token::lowTint, 0xFFFDEFD2, 0xFF3A2D15},
    {Token::neutral, 0xFF565C67, 0xFFB4BAC5},
    {Token::neutralTint, 0xFFECEEF2, 0xFF33373F},
    {Token::star, 0xFFCC8100, 0xFFF0AE3C},
    {Token::rowStar, 0xFF7A818D, 0xFF9298A5},
    {Token::emptyStar, 0xFFDADDE3, 0xFF454A54},
    {Token::selectedEmptyStar, 0xFFC9CCE6, 0xFF565A8F},
    {Token::spark, 0xFF868D99, 0xFF8A919E},
    {Token::chartFill, 0x144448C8, 0x17A7ADFF},
    {Token::grid, 0xFFECEEF2, 0xFF2E3138},
    {Token::good, 0xFF3E9E72, 0xFF4FAE82},
    {Token::fair, 0xFF8C93A0, 0xFF7B828F},
    {Token::weak, 0xFFB9852A, 0xFFC9963E},
    {Token::bad, 0xFFCC5F52, 0xFFD9756B},
    {Token::artworkEdge, 0x1A000000, 0x1FFFFFFF},
    {Token::scrim, 0x6614161B, 0x80000000},
    {Token::shadow, 0x2914161B, 0x66000000},
    {Token::segment, 0xFFFFFFFF, 0xFF454A55},
    {Token::tooltip, 0xFF1B1D22, 0xFFE8EAEF},
    {Token::tooltipText, 0xFFFFFFFF, 0xFF212328},
}};

constexpr bool isOrdered() {
  for (std::size_t i = 0; i < kRows.size(); ++i) {
    if (kRows[i].token != static_cast<Token>(i)) return false;
  }
  return true;
}
static_assert(isOrdered());

/// What a stronger contrast shows instead of a token.
struct StrongerRow {
  Token token;
  Token instead;
};

constexpr std::array kStronger{
    StrongerRow{Token::secondary, Token::text},  StrongerRow{Token::tertiary, Token::text},
    StrongerRow{Token::neutral, Token::text},    StrongerRow{Token::control, Token::text},
    StrongerRow{Token::edge, Token::text},       StrongerRow{Token::line, Token::text},
    StrongerRow{Token::sheetEdge, Token::text},  StrongerRow{Token::spark, Token::text},
    StrongerRow{Token::rowStar, Token::text},    StrongerRow{Token::side, Token::base},
    StrongerRow{Token::raised, Token::base},     StrongerRow{Token::downTint, Token::base},
    StrongerRow{Token::upTint, Token::base},     StrongerRow{Token::freshTint, Token::base},
    StrongerRow{Token::lowTint, Token::base},    StrongerRow{Token::neutralTint, Token::base},
    StrongerRow{Token::tintedText, Token::text},
};

/// One channel as light, after WCAG 2.
double linear(double channel) {
  return channel <= 0.03928 ? channel / 12.92 : std::pow((channel + 0.055) / 1.055, 2.4);
}

double luminance(const QColor& color) {
  return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) +
         0.0722 * linear(color.blueF());
}

}  // namespace

Palette::Palette(Scheme scheme, Contrast contrast) : scheme_(scheme), contrast_(contrast) {
  for (const TokenRow& row : kRows) {
    colors_[indexOf(row.token)] = QColor::fromRgba(scheme == Scheme::dark ? row.dark : row.light);
  }
  if (contrast == Contrast::normal) return;
  const bool isDark = scheme == Scheme::dark;
  colors_[indexOf(Token::base)] = isDark ? Qt::black : Qt::white;
  colors_[indexOf(Token::text)] = isDark ? Qt::white : Qt::black;
  // The one grey that is left: it still reads well.
  colors_[indexOf(Token::disabled)] = QColor::fromRgba(isDark ? 0xFFA6A6A6 : 0xFF636363);
  for (const StrongerRow& row : kStronger) {
    colors_[indexOf(row.token)] = (*this)[row.instead];
  }
}

QPalette widgetPalette(const Palette& palette) {
  using Role = std::pair<QPalette::ColorRole, Token>;
  constexpr std::array kRoles{
      Role{QPalette::Window, Token::base},
      Role{QPalette::Base, Token::base},
      Role{QPalette::AlternateBase, Token::raised},
      Role{QPalette::WindowText, Token::text},
      Role{QPalette::Text, Token::text},
      Role{QPalette::ButtonText, Token::text},
      Role{QPalette::Highlight, Token::accent},
      Role{QPalette::HighlightedText, Token::onAccent},
      Role{QPalette::PlaceholderText, Token::tertiary},
      Role{QPalette::Link, Token::accentText},
      Role{QPalette::LinkVisited, Token::accentText},
      Role{QPalette::ToolTipBase, Token::tooltip},
      Role{QPalette::ToolTipText, Token::tooltipText},
      Role{QPalette::Mid, Token::line},
      Role{QPalette::Midlight, Token::line},
      Role{QPalette::Light, Token::base},
      Role{QPalette::Dark, Token::edge},
      Role{QPalette::Shadow, Token::edge},
  };
  QPalette result;
  for (const auto& [role, token] : kRoles) result.setColor(role, palette[token]);
  const bool isDark = palette.scheme() == Scheme::dark;
  result.setColor(QPalette::Button, palette[isDark ? Token::raised : Token::base]);
  for (const auto role :
       {QPalette::WindowText, QPalette::Text, QPalette::ButtonText, QPalette::PlaceholderText}) {
    result.setColor(QPalette::Disabled, role, palette[Token::disabled]);
  }
  // Where quieter texts are as black as all others, what only stands for a text must not be.
  if (palette.contrast() == Contrast::more) {
    for (const auto group : {QPalette::Active, QPalette::Inactive}) {
      result.setColor(group, QPalette::PlaceholderText, palette[Token::disabled]);
    }
  }
  return result;
}

QColor mixed(const QColor& color, const QColor& other, double share) {
  const auto blend = [share](float from, float to) {
    return static_cast<float>(from + (to - from) * share);
  };
  return QColor::fromRgbF(blend(color.redF(), other.redF()), blend(color.greenF(), other.greenF()),
                          blend(color.blueF(), other.blueF()), color.alphaF());
}

double contrastRatio(const QColor& first, const QColor& second) {
  const double a = luminance(first);
  const double b = luminance(second);
  return (std::max(a, b) + 0.05) / (std::min(a, b) + 0.05);
}

}  // namespace quillet
