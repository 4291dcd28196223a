// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "cli/online/app/app_table.h"

#include "analysis/purchase_cost.h"
#include "base/text.h"
#include "cli/rating_text.h"

namespace quillet {

const std::vector<TableColumn>& appColumns() {
  static const std::vector<TableColumn> kColumns{
      {.heading = "ID", .ink = Ink::dim},
      {.heading = "Name", .ink = Ink::bold, .smallest = 26},
      {.heading = "Price", .align = Align::right, .ink = Ink::green},
      {.heading = "Rating", .ink = Ink::yellow, .leavesAs = 4},
      {.heading = "Inside", .leavesAs = 5},
      {.heading = "Updated", .leavesAs = 3},
      {.heading = "Category", .smallest = 12, .leavesAs = 2},
      {.heading = "Seller", .ink = Ink::dim, .smallest = 16, .leavesAs = 1},
  };
  return kColumns;
}

TableRow appCells(const CLIAppSummary& app, const LocaleFormats& formats, const TextStyle& style) {
  const std::string unknown(dash(style));
  return {std::to_string(app.trackId),
          printable(app.name),
          shown(app.formattedPrice),
          ratingText(app.rating, app.ratingCount, RatingPlace::table, formats, style),
          app.insideCost ? printable(insideCostText(*app.insideCost, formats)) : "",
          app.lastUpdated ? formatDay(*app.lastUpdated) : unknown,
          shown(app.genre),
          shown(app.seller)};
}

}  // namespace quillet
