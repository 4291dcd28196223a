// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "export/report_wording.h"

#include "base/text.h"

namespace quillet {

std::string storefrontText(const AppReport& report) {
  std::string text;
  for (const char c : report.storefront) {
    text += static_cast<char>(c >= 'a' && c <= 'z' ? c - 'a' + 'A' : c);
  }
  return text + " storefront";
}

std::string currencyNote(const std::string& currency) {
  return currency.empty() ? std::string() : "Prices in " + currency + ".";
}

std::string releaseTitle(const VersionEntry& entry) {
  const std::string day = formatDay(entry.releaseDate);
  return entry.version.empty() ? day : entry.version + " — " + day;
}

std::string starsText(const AppReview& review) {
  std::string stars;
  if (!review.rating) return stars;
  for (int star = 1; star <= 5; ++star) stars += star <= *review.rating ? "★" : "☆";
  return stars;
}

std::string bylineText(const AppReview& review) {
  std::vector<std::string> parts;
  if (!review.userName.empty()) parts.push_back(review.userName);
  if (review.date) parts.push_back(formatDay(*review.date));
  if (review.isEdited) parts.emplace_back("edited");
  return join(parts, " · ");
}

}  // namespace quillet
