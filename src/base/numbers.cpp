// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "base/numbers.h"

#include <charconv>
#include <cmath>

namespace quillet {

namespace {

std::string_view withoutPlus(std::string_view text) {
  // std::from_chars reads a minus sign but no plus sign.
  if (text.size() > 1 && text[0] == '+' && text[1] != '-') text.remove_prefix(1);
  return text;
}

}  // namespace

std::optional<double> parseDecimal(std::string_view text) {
  if (text.find_first_not_of("+-.0123456789") != std::string_view::npos) return {};
  text = withoutPlus(text);
  double number = 0;
  const auto [end, error] =
      std::from_chars(text.data(), text.data() + text.size(), number, std::chars_format::fixed);
  if (error != std::errc{} || end != text.data() + text.size()) return {};
  return number;
}

std::optional<std::int64_t> parseWhole(std::string_view text) {
  text = withoutPlus(text);
  std::int64_t number = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  if (error != std::errc{} || end != text.data() + text.size()) return {};
  return number;
}

std::string decimalText(double number) {
  // "-0.0" would read as a price that nobody asked for.
  if (number == 0) return "0.0";
  char digits[400];
  const auto end =
      std::to_chars(std::begin(digits), std::end(digits), number, std::chars_format::fixed).ptr;
  std::string text(digits, end);
  if (std::isfinite(number) && text.find('.') == std::string::npos) text += ".0";
  return text;
}

}  // namespace quillet
