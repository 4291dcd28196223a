// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include <gtest/gtest.h>

#include "base/errors.h"
#include "library/library_export_csv.h"
#include "library/library_export_json.h"
#include "support/flattened.h"

namespace quillet {
namespace {

constexpr Instant kDay = std::chrono::sys_days{std::chrono::year{2026} / 3 / 1};

LibraryExport document() {
  using namespace std::chrono_literals;
  return {kDay + 90s + 250ms,
          {{1, "us", "mac", " =1+1", 4.99, {}, true, false, true, kDay},
           {5'000'000'000, "de", "ipad", "Ink, \"well\"", 0, 1234.5, false, true, false, kDay}},
          {{"To, read", "book", {{2, "jp", "iphone", "Inkwell\r", "cheap, good", kDay}}},
           {"Empty", "", {}}}};
}

/// What stands in one line here is written over many.
constexpr std::string_view kJson =
    R"({"version": 1,"exportedAt": "2026-03-01T00:01:30Z",)"
    R"("watchlist": [{"trackId": 1,"country": "us","platform": "mac","name": " =1+1",)"
    R"("priceWhenAdded": 4.99,"alertOnAnyDrop": true,"alertOnFree": false,)"
    R"("alertOnNewVersion": true,"addedAt": "2026-03-01T00:00:00Z"},)"
    R"({"trackId": 5000000000,"country": "de","platform": "ipad","name": "Ink, \"well\"",)"
    R"("priceWhenAdded": 0,"targetPrice": 1234.5,"alertOnAnyDrop": false,"alertOnFree": true,)"
    R"("alertOnNewVersion": false,"addedAt": "2026-03-01T00:00:00Z"}],)"
    R"("collections": [{"name": "To, read","symbolName": "book","entries": [)"
    R"({"trackId": 2,"country": "jp","platform": "iphone","name": "Inkwell\r",)"
    R"("note": "cheap, good","addedAt": "2026-03-01T00:00:00Z"}]},)"
    R"({"name": "Empty","symbolName": "","entries": []}]})";

/// The document above with one text put in the place of another.
std::string jsonWith(std::string_view from, std::string_view to) {
  std::string json(kJson);
  return json.replace(json.find(from), from.size(), to);
}

TEST(LibraryExport, IsOneJsonDocumentThatReadsBack) {
  EXPECT_EQ(flattened(libraryExportJson(document())), kJson);
  LibraryExport expected = document();
  expected.exportedAt = std::chrono::floor<std::chrono::seconds>(expected.exportedAt);
  EXPECT_EQ(readLibraryExport(jsonWith("\"symbolName\"", R"("later": [1], "symbolName")")),
            expected)
      << "unknown keys are passed over";
}

TEST(LibraryExport, IsOneTableOfTextsAsTheyAre) {
  EXPECT_EQ(
      libraryExportCsv(document()),
      "kind,collection,name,trackId,country,platform,priceWhenAdded,targetPrice,note,addedAt\n"
      "watchlist,, =1+1,1,us,mac,4.99,,,2026-03-01T00:00:00Z\n"
      "watchlist,,\"Ink, \"\"well\"\"\",5000000000,de,ipad,0.0,1234.5,,2026-03-01T00:00:00Z\n"
      "collection,\"To, read\",\"Inkwell\r\",2,jp,iphone,,,\"cheap, good\",2026-03-01T00:00:00Z");
}

TEST(LibraryExport, SaysWhereADocumentIsWrong) {
  const std::pair<std::string, std::string> cases[] = {
      {"", "it is empty"},
      {std::string(kJson.substr(0, 300)), "it is not JSON"},
      {std::string(kLargestExport + 1, ' '), "it is too large"},
      {"[]", "it is not an exported library"},
      {jsonWith(": 1,", ": 2,"),
       "it was written by a newer Quillet (format version 2, this one knows 1)"},
      {jsonWith("[", R"({}, "x": [)"), "'watchlist' is not a list"},
      {jsonWith("[", "[7,"), "'watchlist[0]' is not an object"},
      {jsonWith("5000000000", "-5"), "'watchlist[1].trackId' is not above 0"},
      {jsonWith("\"de\"", "\"DE\""), "'watchlist[1].country' is not two lower-case letters"},
      {jsonWith("\"ipad\"", "\"tv\""), "'watchlist[1].platform' is not mac, iphone or ipad"},
      {jsonWith("1234.5", "-1"), "'watchlist[1].targetPrice' is below 0"},
      {jsonWith("\"Inkwell\\r\"", "null"), "'collections[0].entries[0].name' is missing"},
  };
  for (const auto& [json, complaint] : cases) {
    try {
      static_cast<void>(readLibraryExport(json));
      ADD_FAILURE() << "taken, though " << complaint;
    } catch (const DecodingError& error) {
      EXPECT_EQ(error.what(), complaint);
    }
  }
}

}  // namespace
}  // namespace quillet
