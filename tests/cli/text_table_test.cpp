// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "cli/text_table.h"

#include <gtest/gtest.h>

namespace quillet {
namespace {

const std::vector<TableColumn> kColumns{
    {.heading = "ID"},
    {.heading = "Name", .ink = Ink::bold, .smallest = 6},
    {.heading = "Price", .align = Align::right},
    {.heading = "Note", .smallest = 4, .leavesAs = 2},
    {.heading = "Seller", .leavesAs = 1},
};
const std::vector<TableRow> kRows{
    {"1", "Fernwick", "$1.99", "", "Noor"},
    {"22", "Łódka 👩‍👩‍👧 Notes", "$12.99", "a longer note", "Amberfield"},
};

std::string tableOf(std::size_t width) { return renderTable(kColumns, kRows, {.width = width}); }

TEST(TextTable, LeavesOutThenCutsUntilALineFits) {
  EXPECT_EQ(tableOf(36),
            "ID  Name     Price  Note  Seller\n"
            "1   Fernw…   $1.99        Noor\n"
            "22  Łódka…  $12.99  a l…  Amberfield\n");
  EXPECT_EQ(tableOf(30),
            "ID  Name           Price  Note\n"
            "1   Fernwick       $1.99\n"
            "22  Łódka 👩‍👩‍👧 No…  $12.99  a l…\n");
  // A name of 14 columns would do at most with 12, and in need with 10.
  EXPECT_EQ(renderTable({{.heading = "ID"}, {.heading = "Name", .smallest = 12}},
                        {{"1480068668", "Fernwick Notes"}}, {.width = 22}),
            "ID          Name\n"
            "1480068668  Fernwick …\n");
  // Narrower than anything can be: what is left is still whole lines.
  EXPECT_EQ(tableOf(5),
            "ID  Name     Price\n"
            "1   Fernw…   $1.99\n"
            "22  Łódka…  $12.99\n");
}

TEST(TextTable, TakesBackWhatFitsWhereAWideColumnLeft) {
  EXPECT_EQ(
      renderTable({{.heading = "Name"},
                   {.heading = "Rating", .leavesAs = 2},
                   {.heading = "Inside", .leavesAs = 3},
                   {.heading = "Seller", .leavesAs = 1}},
                  {{"Fernwick", "4.5", "sub $40/yr, unlock $100", "Amberfield"}}, {.width = 24}),
      "Name      Rating\n"
      "Fernwick  4.5\n");
}

TEST(TextTable, AlignsByTheColumnsOfATerminal) {
  EXPECT_EQ(renderTable({{.heading = "Name", .smallest = 6},
                         {.heading = "Price", .align = Align::right},
                         {.heading = "Date"}},
                        {{"メモの庭 – notes", "￥500", "2026"}, {"Notes", "$1,000", "2025"}},
                        {.width = 28}),
            "Name             Price  Date\n"
            "メモの庭 – no…   ￥500  2026\n"
            "Notes           $1,000  2025\n");
}

TEST(TextTable, LetsOneLongCellReachBeyondItsColumn) {
  const std::string longName(60, 'x');
  EXPECT_EQ(renderTable(kColumns, {{"1", longName, "$1", "", "A"}, {"2", "y", "$2", "", "B"}}, {}),
            "1  " + longName + "  $1  A\n" + "2  y" + std::string(45, ' ') + "$2  B\n");
}

TEST(TextTable, InksCellsNotTheirGaps) {
  EXPECT_EQ(renderTable({{.heading = "a", .ink = Ink::yellow}, {.heading = "b", .ink = Ink::dim}},
                        {{"x", "y"}}, {.colour = true}),
            "\x1B[33mx\x1B[0m  \x1B[2my\x1B[0m\n");
  EXPECT_EQ(inked("", Ink::bold, {.colour = true}), "");
}

}  // namespace
}  // namespace quillet
