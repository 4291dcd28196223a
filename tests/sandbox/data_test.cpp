// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

// What a slip in one of the data files comes to. That they hold none, and that what they say is
// sound, the tests of the store tell, which is made of them.

#include <fmt/format.h>
#include <gtest/gtest.h>

#include "base/errors.h"
#include "sandbox/hand_written.h"
#include "sandbox/review_texts.h"
#include "sandbox/words.h"
#include "support/message_of.h"

namespace quillet::sandbox {
namespace {

/// apps.json with one app that says `more`.
std::string appSaying(const std::string& more) {
  return fmt::format(
      R"({{"makers": {{"fen": {{"id": 1, "seller": "Fen Ltd", "artist": "Fen"}}}},)"
      R"("apps": [{{"id": 2, "name": "Reed", "bundleId": "fen.reed", "genres": [6002], {}}}]}})",
      more);
}

TEST(DataFiles, appsAreReadWithWhatTheyLeaveOut) {
  const AppSketch app =
      readApps(
          appSaying(
              R"("maker": "fen", "machines": ["ipad"], "storefronts": ["jp", "us"], "purchases": [
         {"name": "Tip", "usCents": 99}, {"name": "Pro", "usCents": 199, "period": "P1Y"}])"))
          .at(0);
  EXPECT_EQ(app.maker.seller, "Fen Ltd");
  EXPECT_TRUE(app.machines.ipad && !app.machines.mac && !app.machines.iphone);
  EXPECT_EQ(app.storefronts, StorefrontSet("0001000001"));
  EXPECT_EQ(app.purchases.at(0).details, "Bought once.");
  EXPECT_EQ(app.purchases.at(1).period, "P1Y");
  EXPECT_EQ(app.languages, std::vector<std::string>{"EN"});
}

TEST(DataFiles, slipsInAppsAreNamed) {
  const std::pair<const char*, const char*> cases[] = {
      {R"("maker": "fen", "prise": 99)", R"(Reed: nothing is called "prise")"},
      {R"("usCents": 99)", R"(Reed: "maker" is missing)"},
      {R"("maker": "bog")", "Reed: there is no such maker"},
      {R"("maker": "fen", "machines": ["watch"])",
       R"(Reed: "watch" is none of the words for that)"},
      {R"("maker": "fen", "macBuild": "both")", R"(Reed: "both" is none of the words for that)"},
      {R"("maker": "fen", "storefronts": ["pl"])", R"(Reed: there is no storefront "pl")"},
      {R"("maker": "fen", "usCents": 5000000000)", R"(Reed: "usCents" is too large)"},
      {R"("maker": "fen", "purchases": [{"name": "Tip"}])",
       R"(Reed: purchases: "usCents" is missing)"},
  };
  for (const auto& [slip, said] : cases)
    EXPECT_EQ(messageOf<DecodingError>([&] { (void)readApps(appSaying(slip)); }), said);
  EXPECT_THROW((void)readApps(R"({"makers": {}, "apps": [})"), DecodingError);
}

TEST(DataFiles, slipsInTextsAreNamed) {
  EXPECT_EQ(messageOf<DecodingError>([] { (void)readWords(R"({"genres": []})"); }),
            "words.json: there are no genres");
  const std::string words = R"({"genres": [{"id": 1, "name": "Fens", "kinds": ["Reed"]}], )";
  EXPECT_EQ(messageOf<DecodingError>([&] { (void)readWords(words + R"("adjectives": []})"); }),
            R"(words.json: "adjectives" is empty)");
  EXPECT_EQ(messageOf<DecodingError>(
                [] { (void)readReviewTexts(R"({"languages": [], "thanks": ["Oh!"]})"); }),
            "reviews.json: a storefront has no language");
}

}  // namespace
}  // namespace quillet::sandbox
