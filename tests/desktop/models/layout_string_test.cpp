// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/models/layout_string.h"

#include <gtest/gtest.h>

#include <array>

namespace quillet {
namespace {

constexpr std::array<std::string_view, 4> kUsual{"pictures", "prices", "notes", "facts"};

TEST(LayoutStringTest, KeepsWhatItDoesNotKnowAndFindsAPlaceForTheNew) {
  struct {
    std::string written;
    std::string all;  ///< with the missing ones; hidden ones with "-"
  } const rows[] = {
      {"", "pictures,prices,notes,facts"},
      {"pictures,prices,notes,facts", "pictures,prices,notes,facts"},
      {"facts,notes,prices,pictures", "facts,notes,prices,pictures"},
      {"-prices", "pictures,-prices,notes,facts"},
      {"facts,-notes", "pictures,prices,facts,-notes"},
      {"notes,pictures", "notes,facts,pictures,prices"},
      {"ranks,facts,-maps", "pictures,prices,notes,ranks,facts,-maps"},
      {" facts , - notes ,,-,facts,-facts", "pictures,prices,facts,-notes"},
  };
  for (const auto& row : rows) {
    std::string all;
    for (const BlockChoice& choice : readBlockChoices(row.written, kUsual))
      all += (all.empty() ? "" : ",") + std::string(choice.isShown ? "" : "-") + choice.id;
    EXPECT_EQ(all, row.all) << row.written;
    const std::string kept = blockChoicesText(readBlockChoices(row.written, kUsual), kUsual);
    EXPECT_EQ(kept, all == "pictures,prices,notes,facts" ? "" : all);
  }
}

}  // namespace
}  // namespace quillet
