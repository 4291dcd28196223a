// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "support/command_line_test.h"

namespace quillet {
namespace {

using OperandsTest = CommandLineTest;

TEST_F(OperandsTest, AreRefusedBeforeAnyRequest) {
  const std::string prices = "\n  try: quillet price-history 1480068668 --json";
  const std::string few =
      "compare needs at least two track IDs.\n  try: quillet search <name> --json to find them";
  const std::pair<Words, std::string> rows[] = {
      {{"search", " \t"}, "search needs a term.\n  try: quillet search \"markdown editor\" --json"},
      {"search markdown editor",
       "search takes one term; got 2.\n"
       "  try: Quote terms with spaces: quillet search \"markdown editor\""},
      {{"info", " "},
       "info needs a track ID or a bundle ID.\n  try: quillet info 1480068668 --json"},
      {"info 11 12", "info takes one track ID or bundle ID; got 2."},
      {"versions com.amber.notes",
       "versions needs one numeric track ID.\n  try: quillet versions 824183456 --json\n"
       "  try: quillet info com.amber.notes tells its track ID"},
      {"price-history x1", "price-history takes a track ID; got 'x1'." + prices},
      {"price-history com.amber.notes",
       "price-history takes a track ID; got 'com.amber.notes'." + prices +
           "\n  try: quillet info com.amber.notes tells its track ID"},
      {"price-history 1 2", "price-history takes one track ID; got 2." + prices},
      {"storefronts",
       "storefronts needs a track ID.\n  try: quillet storefronts 1480068668 --json"},
      {"deals x", "deals takes no arguments, only options."},
      {"compare 1 1", few},
      {"compare 1 99999999999999999999", "compare takes track IDs only."},
      {"compare 1 com.amber.notes",
       "compare takes track IDs only.\n  try: quillet info com.amber.notes tells its track ID"},
      {"compare 1 2 3 4 5 6 7 8 9",
       "compare takes at most 8 apps.\n  try: quillet compare 1176895641 1289583905 --json"},
      {"charts games",
       "charts takes no arguments; pick a category with --genre.\n"
       "  try: quillet charts --genre Productivity --json"},
      {"charts --chart top-grossing",
       "Apple publishes no Mac top grossing chart. Its Mac grossing feed returns the iPhone chart, "
       "so Quillet does not offer it.\n"
       "  try: quillet charts --chart top-grossing --platform iphone"},
  };
  for (const auto& [words, message] : rows) EXPECT_EQ(said(words, 2), "quillet: " + message + "\n");
  EXPECT_TRUE(said("charts --genre 36", 2)
                  .starts_with("quillet: Unknown category '36' for --genre.\n"
                               "  try: --genre takes Books, "));
  EXPECT_TRUE(said("charts --genre Photo", 2)
                  .starts_with("quillet: Unknown category 'Photo' for --genre.\n"
                               "  try: --genre \"Photo & Video\"\n"));
  for (const std::string id : {"0", "99999999999999999999"}) {
    EXPECT_EQ(said({"info", id}, 1), "quillet: Nothing with ID " + id +
                                         " in the us storefront.\n  try: The app may be sold "
                                         "elsewhere: try --country gb, de, jp\n");
  }
}

}  // namespace
}  // namespace quillet
