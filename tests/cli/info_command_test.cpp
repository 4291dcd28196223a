// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "base/columns.h"
#include "support/command_line_test.h"

namespace quillet {
namespace {

constexpr std::string_view kMacApp = R"({"trackId":11,"trackName":"Amber Notes",
  "kind":"mac-software","price":4.99,"formattedPrice":"$4.99","currency":"USD",
  "averageUserRating":0,"userRatingCount":0,"primaryGenreName":"Productivity",
  "genres":["Productivity","Utilities"],"sellerName":"Noor Amberfield",
  "bundleId":"com.amberfield.notes","version":"2.1","releaseDate":"2019-05-01T07:00:00Z",
  "currentVersionReleaseDate":"2026-03-01T08:30:00Z","fileSizeBytes":"48000000",
  "releaseNotes":"Faster.","description":"Notes that outlive their tools.\n\n\n• Plain files\n",
  "trackViewUrl":"https://apps.example/app/id11"})";
constexpr std::string_view kMacEnrichment = R"({"data":[{"attributes":{
  "editorialBadgeInfo":{"nameForDisplay":"Editors' Choice"},
  "editorialNotes":{"tagline":"Notes by the water"},"deviceFamilies":["mac"],
  "userRating":{"value":4.6,"ratingCount":1200,"ratingCountList":[10,2,88,200,900]},
  "chartPositions":{"appStore":{"chart":"Top Paid","genreName":"Productivity","position":12,
    "chartLink":"https://apps.example/charts/36"}},
  "platformAttributes":{"osx":{"versionHistory":[
      {"versionDisplay":"2.1","releaseDate":"2026-03-01T08:30:00Z","releaseNotes":"Faster.\nMore."},
      {"releaseDate":"2025-01-02T00:00:00Z"}],
    "requirementsString":"Requires macOS 13.0 or later.","minimumMacOSVersion":"13.0",
    "runsOnAppleSilicon":true,"runsOnIntel":true,"requiresRosetta":false}}},
  "relationships":{"top-in-apps":{"data":[
    {"id":"1","attributes":{"name":"Amber Monthly","isSubscription":true,"offers":[{"price":4.99,
      "priceFormatted":"$4.99","currencyCode":"USD","recurringSubscriptionPeriod":"P1M"}]}},
    {"id":"2","attributes":{"name":"Lifetime licence","offers":[{"price":99,"currencyCode":"USD"}]}},
    {"id":"3","attributes":{"name":"Unlock Everything"}}]}}}]})";

constexpr std::string_view kIOSApp = R"({"trackId":12,"trackName":"Birch","kind":"software",
  "price":0,"averageUserRating":4,"userRatingCount":1,"bundleId":"com.birch.app","version":"1.0",
  "minimumOsVersion":"16.0","releaseDate":"2026-01-01T00:00:00Z","releaseNotes":"First.",
  "fileSizeBytes":"900"})";
constexpr std::string_view kIOSEnrichment = R"({"data":[{"attributes":{
  "deviceFamilies":["iphone","ipad"],"requirementsString":"Requires iOS 16.",
  "versionHistory":[{"versionDisplay":"1.0","releaseDate":"2026-01-01T00:00:00Z"}]}}]})";
/// The catalog's answer for an app that it does not have.
constexpr std::string_view kNothing = R"({"data":[]})";

class InfoCommandTest : public CommandLineTest {
 protected:
  static std::string lookupBundle(std::string_view bundleId, std::string_view country = "us") {
    return fmt::format("https://store.example/lookup?bundleId={}&country={}&limit=200", bundleId,
                       country);
  }
  void answerMacApp(std::string_view catalog = kMacEnrichment) {
    answerLookup("11", {kMacApp});
    http.answer(enrichment(11, "mac"), 200, std::string(catalog));
  }
};

TEST_F(InfoCommandTest, ShowsAMacAppAsJson) {
  answerMacApp();
  EXPECT_EQ(json("info 11"), flattened(R"({"app": {
      "bundleId": "com.amberfield.notes","currency": "USD","formattedPrice": "$4.99","free": false,
      "genre": "Productivity","genres": ["Productivity","Utilities"],
      "hasInAppPurchases": true,"hasSubscription": true,"kind": "mac-software",
      "lastUpdated": "2026-03-01T08:30:00Z","minimumOS": "13.0","name": "Amber Notes",
      "needsRosetta": false,"price": 4.99,"rating": 4.6,"ratingCount": 1200,
      "releaseDate": "2019-05-01T07:00:00Z","seller": "Noor Amberfield","sizeBytes": 48000000,
      "storeURL": "https://apps.example/app/id11","trackId": 11,"version": "2.1"},
    "architecture": "Apple silicon and Intel",
    "chartPosition": {"chart": "Top Paid","chartURL": "https://apps.example/charts/36",
      "genreName": "Productivity","position": 12},
    "country": "us","description": "Notes that outlive their tools.\n\n\n• Plain files\n",
    "deviceFamilies": ["mac"],"editorialBadge": "Editors' Choice",
    "inAppPurchases": [{"currency": "USD","formattedPrice": "$4.99","name": "Amber Monthly",
       "period": "per month","price": 4.99,"pricePerYear": 59.875082128777926,"subscription": true},
      {"currency": "USD","formattedPrice": "$99.00","name": "Lifetime licence","price": 99,
       "subscription": false},
      {"name": "Unlock Everything","subscription": false}],
    "platform": "mac","ratingHistogram": [10,2,88,200,900],
    "recentVersions": [{"releaseDate": "2026-03-01T08:30:00Z","releaseNotes": "Faster.\nMore.",
      "version": "2.1"},{"releaseDate": "2025-01-02T00:00:00Z"}],
    "releaseNotes": "Faster.","requirements": "Requires macOS 13.0 or later.",
    "tagline": "Notes by the water"})"));
}

TEST_F(InfoCommandTest, ShowsAMacAppToAPerson) {
  answerMacApp();
  io.style.width = 140;
  EXPECT_EQ(printed("info 11"), R"(Amber Notes  Noor Amberfield
Notes by the water
Editors' Choice

Track ID      11
Bundle ID     com.amberfield.notes
Store         Mac App Store, us
Price         $4.99
Rating        ★★★★½ 4.6 (1,200 ratings)
              5 ██████████████████████████████  900   75%
              4 ███████                         200   17%
              3 ███                              88    7%
              2 █                                 2    0%
              1 █                                10    1%
Category      Productivity
Version       2.1
Updated       2026-03-01
Released      2019-05-01
Requires      macOS 13.0 or later
Size          48 MB
Architecture  Apple silicon and Intel
Chart         #12 in Productivity (Top Paid)
Store page    https://apps.example/app/id11

In-app purchases (3)
This app sells both. You can subscribe, or pay once instead — see the prices
below.

Item                Price  Billing       Per year
Amber Monthly       $4.99  per month  $59.88/year
Lifetime licence   $99.00
Unlock Everything

Description
Notes that outlive their tools.

• Plain files

What's new in 2.1
Faster.

Versions
Version  Released    Notes
2.1      2026-03-01  Faster.
         2025-01-02
)");
  answerLookup("11", {kMacApp});  // the catalog's answer is kept
  io.style.utf8 = false;
  printed("info 11");
  EXPECT_TRUE(says("Rating        4.6 (1,200 ratings)\n"));
  EXPECT_TRUE(says("              4 #######                         200   17%\n"));
  EXPECT_TRUE(says("or pay once instead - see the prices\n"));
}

TEST_F(InfoCommandTest, WritesAllAmountsOfThePageInTheUsersForm) {
  const std::string yearly = R"({"id":"4","attributes":{"name":"Amber Yearly","isSubscription":true,
    "offers":[{"price":39.99,"priceFormatted":"$39.99","currencyCode":"USD",
      "recurringSubscriptionPeriod":"P1Y"}]}},{"id":"3")";
  std::string catalog(kMacEnrichment);
  catalog.replace(catalog.find(R"({"id":"3")"), 9, yearly);
  answerMacApp(catalog);
  formats = LocaleFormats{UserLocale{"de_DE", "de_DE", "de_DE", "de_DE"}};
  printed("info 11");
  EXPECT_TRUE(says("Price         4,99\u00A0$\n"));
  EXPECT_TRUE(says("★★★★½ 4,6 (1.200 ratings)\n"));
  EXPECT_TRUE(says("4,99\u00A0$  per month  59,88\u00A0$/year\n"));
  EXPECT_TRUE(says("39,99\u00A0$  per year   39,99\u00A0$/year\n"));
}

TEST_F(InfoCommandTest, CutsLongListsAndTextsAndSaysSo) {
  const std::vector<std::string_view> purchases(11, R"({"id":"1","attributes":{
      "name":"A gold pack of a rather great size, and that is not all",
      "offers":[{"price":1,"priceFormatted":"$1.00"}]}})");
  const std::vector<std::string_view> versions(11, R"({"versionDisplay":"1.1",
      "releaseDate":"2024-03-01","releaseNotes":"Better than ever before, and in more ways."})");
  const std::vector<std::string_view> words(300, "words");
  answerLookup("13", {fmt::format(R"({{"trackId":13,"trackName":"{0}","kind":"software",
                                    "description":"{0}"}})",
                                  fmt::join(words, " "))});
  http.answer(enrichment(13, "ipad"), 200,
              fmt::format(R"({{"data":[{{"attributes":{{"versionHistory":[{}]}},
                            "relationships":{{"top-in-apps":{{"data":[{}]}}}}}}]}})",
                          fmt::join(versions, ","), fmt::join(purchases, ",")));
  io.style.width = 80;
  const std::string page = printed("info 13");
  EXPECT_TRUE(says("In-app purchases (11)\n") && says("$1.00\n… and 1 earlier, in --json\n"));
  EXPECT_TRUE(says("words words\n… the rest is in --json\n"));
  EXPECT_TRUE(page.ends_with("\n… and 6 earlier, in --json\n"));
  answerLookup("13", {fmt::format(R"({{"trackId":13,"trackName":"{0}","kind":"software",
                                    "description":"{0}"}})",
                                  fmt::join(words, " "))});
  io.style.isWhole = true;
  printed("info 13");
  EXPECT_FALSE(says("the rest is in --json"));
  for (const std::string_view line : split(page, '\n')) {
    EXPECT_LE(columnCount(line), 80U) << line;
  }
}

TEST_F(InfoCommandTest, PrintsNothingThatATerminalObeys) {
  const std::string hostile = R"(x\u001b[31m\u009b1m\u0007\ny)";
  const std::string app = fmt::format(
      R"({{"trackId":13,"trackName":"{0}","kind":"{0}","bundleId":"{0}","sellerName":"{0}",
      "price":1,"formattedPrice":"{0}","primaryGenreName":"{0}","version":"{0}",
      "minimumOsVersion":"{0}","trackViewUrl":"{0}","description":"{0}","releaseNotes":"{0}"}})",
      hostile);
  const std::string body = fmt::format(
      R"({{"data":[{{"id":"13","attributes":{{"editorialBadgeInfo":"{0}",
      "editorialNotes":{{"tagline":"{0}"}},"chartPositions":{{"appStore":{{"chart":"{0}",
      "genreName":"{0}","position":1}}}},"versionHistory":[{{"versionDisplay":"{0}",
      "releaseDate":"2024-03-01","releaseNotes":"{0}"}}]}},"relationships":{{"top-in-apps":{{
      "data":[{{"id":"1","attributes":{{"name":"{0}","offers":[{{"price":1,
      "priceFormatted":"{0}","currencyCode":"{0}"}}]}}}}]}}}}}}]}})",
      hostile);
  http.answer(lookup("13"), 200, answer({app}));
  http.answer(enrichment(13, "ipad"), 200, body);
  printed("info 13");
  EXPECT_EQ(io.out.content.find_first_of("\x1B\x07"), std::string::npos);
  EXPECT_FALSE(says("\xC2\x9B"));
  // Line feeds stay in running text alone.
  EXPECT_TRUE(io.out.content.starts_with("x[31m1m y  x[31m1m y\n")) << io.out.content;
  EXPECT_TRUE(says("Description\nx[31m1m\ny\n"));
}

TEST_F(InfoCommandTest, SaysWhereToLookForWhatIsNotThere) {
  answerLookup("7", {});
  EXPECT_TRUE(said("info 7", 1).starts_with("quillet: Nothing with ID 7 in the us st"));
  http.answer(lookupBundle("com.example.Notes", "de"), 200, answer({}));
  EXPECT_EQ(said("info com.example.Notes -c de", 1),
            "quillet: Nothing matching 'com.example.Notes' in the de storefront.\n"
            "  try: quillet search \"Notes\" --country de --json\n");
  http.answer(lookupBundle("com.%24%28x%29%60"), 200, answer({}));
  EXPECT_TRUE(said("info com.$(x)`", 1).ends_with("search \"\\$(x)\\`\" --json\n"));
  // A comma starts another bundle ID, for the service alone.
  http.answer(lookupBundle("x,com.birch."), 200, answer({kIOSApp}));
  EXPECT_TRUE(said("info x,com.birch.", 1).ends_with("search \"x,com.birch.\" --json\n"));
}

TEST_F(InfoCommandTest, DoesWithoutACatalogThatCannotBeReadUnlessItLimitsTheRate) {
  const std::string start = "quillet: the catalog could not be read: ";
  http.fail(enrichment(11, "mac"),
            NetworkError(NetworkError::Kind::cannotReach, "The connection was\x1B[1m lost"));
  answerLookup("11", {kMacApp});
  EXPECT_EQ(said("info 11 --json", 0),
            start + "Could not reach Apple: The connection was[1m lost.\n");
  EXPECT_TRUE(says("\"version\": \"2.1\""));
  EXPECT_FALSE(says("inAppPurchases") || says("hasIn") || says("rating")) << io.out.content;
  answerMacApp("<html>");
  EXPECT_EQ(said("info 11", 0), start + "it is not JSON.\n");
  EXPECT_TRUE(says("Rating        —\n")) << "nobody knows";
  EXPECT_FALSE(says("In-app")) << io.out.content;

  for (int i = 0; i < 3; ++i) http.answer(enrichment(11, "mac", "gb"), 429, "");
  answerLookup("11", {kMacApp}, "gb");
  printed("info 11 -c gb --no-retry", 4);
}

TEST_F(InfoCommandTest, ShowsOfABuildWhatIsKnownOfItAlone) {
  struct Row {
    std::string_view app, platform, enrichment, said, shown, hidden;  // the last two with bars
  };
  const Row rows[] = {
      {kIOSApp, "mac", kIOSEnrichment, "quillet: the store describes no Mac build of this app.\n",
       R"("platform": "mac"|"name": "Birch")", R"("version"|minimumOS|rating|requirements)"},
      {kMacApp, "iphone", kMacEnrichment,
       "quillet: the store describes no iPhone build of this app.\n", R"("platform": "iphone")",
       R"("version"|architecture|minimumOS)"},
      {kMacApp, "mac", R"({"data":[{"attributes":{"userRating":{"value":0,"ratingCount":0}}}]})",
       "", R"("ratingCount": 0|"hasSubscription": false|"inAppPurchases": [])",
       R"("rating":|arch)"},
      {kMacApp, "mac", R"({"data":[{"attributes":{"runsOnIntel":true,"requiresRosetta":true}}]})",
       "", R"("architecture": "Intel (needs|"needsRosetta": true)", "rating"},
      {kMacApp, "mac", R"({"data":[{"attributes":{"runsOnAppleSilicon":true}}]})", "",
       R"("architecture": "Apple silicon",)", "rating"}};
  const Words countries{"us", "gb", "de", "fr", "jp"};  // answers are kept by storefront
  for (std::size_t i = 0; i < std::size(rows); ++i) {
    SCOPED_TRACE(i);
    const Row& row = rows[i];
    const std::string id = row.app == kMacApp ? "11" : "12";
    answerLookup(id, {row.app}, countries[i]);
    http.answer(enrichment(std::stoi(id), row.platform == "mac" ? "mac" : "ipad", countries[i]),
                200, std::string(row.enrichment));
    EXPECT_EQ(said({"info", id, "-p", std::string(row.platform), "-c", countries[i], "--json"}, 0),
              row.said);
    for (const auto text : split(row.shown, '|')) EXPECT_TRUE(says(text)) << text;
    for (const auto text : split(row.hidden, '|')) EXPECT_FALSE(says(text)) << text;
  }
}

TEST_F(InfoCommandTest, DescribesWhicheverTheAppIs) {
  const std::string twins =
      answer({R"({"trackId":14,"bundleId":"com.twin","kind":"software","trackName":"A"})",
              R"({"trackId":15,"bundleId":"com.twin","kind":"mac-software","trackName":"B"})"});
  for (int i = 0; i < 2; ++i) http.answer(lookupBundle("com.twin"), 200, twins);
  http.answer(lookupBundle("com.birch.app"), 200, answer({kIOSApp}));
  answerLookup("16", {R"({"trackId":16,"trackName":"Pad","kind":"software","screenshotUrls":[],
                        "ipadScreenshotUrls":["https://pic.example/1.png"]})"});
  const std::tuple<Words, int, std::string_view, const char*> rows[] = {
      {"info com.twin", 14, kNothing, "Track ID      14\n"},
      {"info com.twin -p mac", 15, kNothing, "Track ID      15\n"},
      {"info 16", 16, kNothing, "Store         App Store for iPad, us\n"},
      {"info com.birch.app", 12, kIOSEnrichment,
       "Store         App Store for iPhone, us\nPrice         Free\n"}};
  for (const auto& [words, id, catalog, shown] : rows) {
    http.answer(enrichment(id, id == 15 ? "mac" : "ipad"), 200, std::string(catalog));
    EXPECT_EQ(said(words, 0), "");
    EXPECT_TRUE(says(shown));
  }
  EXPECT_TRUE(says("Requires      iOS 16.0 or later\n"));
  EXPECT_TRUE(says("In-app purchases (0)\nFree, with nothing sold inside the app.\n"));
}

TEST_F(InfoCommandTest, SaysWhatARecordWithoutPriceAndRatingsMeans) {
  for (const std::string country : {"us", "gb"}) {
    answerLookup("17", {R"({"trackId":17,"trackName":"Bare","kind":"mac-software",
                          "averageUserRating":0,"userRatingCount":0})"},
                 country);
    const bool isKnown = country == "gb";
    http.answer(enrichment(17, "mac", country), 200,
                isKnown ? R"({"data":[{"attributes":{"deviceFamilies":["mac"]}}]})"
                        : std::string(kNothing));
    printed({"info", "17", "-c", country});
    EXPECT_TRUE(says("Price         Free\nRating        none yet\n"));
  }
  answerLookup("17", {R"({"trackId":17,"trackName":"Bare"})"});
  http.answer(enrichment(17, "ipad"), 200, std::string(kNothing));
  EXPECT_EQ(json("info 17"), flattened(R"({"app": {"formattedPrice": "Free","free": true,
    "name": "Bare","trackId": 17},"country": "us","platform": "iphone"})"));
}

}  // namespace
}  // namespace quillet
