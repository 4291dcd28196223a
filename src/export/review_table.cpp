// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "export/review_table.h"

#include "base/dates.h"
#include "export/csv_text.h"

namespace quillet {

namespace {

std::string textOf(const std::optional<Instant>& when) {
  return when ? formatInternetDate(*when) : std::string();
}

}  // namespace

std::string reviewTable(const std::vector<ReviewTableRow>& reviews) {
  std::string text = csvRow({"Storefront", "Date", "Stars", "Version", "Title", "Review", "Author",
                             "Edited", "Developer response", "Response date"});
  for (const auto& [country, version, review] : reviews) {
    text += csvRow({country, textOf(review.date),
                    review.rating ? std::to_string(*review.rating) : std::string(), version,
                    review.title, review.body, review.userName, review.isEdited ? "yes" : "no",
                    review.developerResponse.value_or(""), textOf(review.developerResponseDate)});
  }
  return text;
}

}  // namespace quillet
