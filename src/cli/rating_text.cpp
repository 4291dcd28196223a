// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "cli/rating_text.h"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>

#include "cli/text_table.h"

namespace quillet {

namespace {

/// "★★★★½"; five characters wide in a table.
std::string stars(double rating, RatingPlace place) {
  const auto halves = static_cast<int>(std::lround(std::clamp(rating, 0.0, 5.0) * 2));
  std::string text;
  for (int i = 0; i < halves / 2; ++i) text += "★";
  if (halves % 2 == 1) text += "½";
  if (place == RatingPlace::table) text.append(static_cast<std::size_t>(5 - (halves + 1) / 2), ' ');
  return text.empty() ? text : text + ' ';
}

std::string countText(std::int64_t count, RatingPlace place, const LocaleFormats& formats) {
  const std::string number = formats.integer(count);
  if (place == RatingPlace::table) return fmt::format(" ({})", number);
  return fmt::format(" ({} rating{})", number, count == 1 ? "" : "s");
}

}  // namespace

std::string ratingText(std::optional<double> rating, std::optional<std::int64_t> count,
                       RatingPlace place, const LocaleFormats& formats, const TextStyle& style) {
  if (count == 0) return "none yet";
  if (!rating) return std::string(dash(style));
  const std::string text = (style.utf8 ? stars(*rating, place) : "") + formats.oneDecimal(*rating);
  return count ? text + countText(*count, place, formats) : text;
}

std::string starsText(int rating, const TextStyle& style) {
  std::string text;
  for (int star = 1; star <= 5; ++star) {
    if (star <= rating) {
      text += style.utf8 ? "★" : "*";
    } else {
      text += style.utf8 ? "☆" : "-";
    }
  }
  return text;
}

}  // namespace quillet
