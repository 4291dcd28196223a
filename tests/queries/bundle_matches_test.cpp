// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "queries/bundle_matches.h"

#include "query_test.h"

namespace quillet {
namespace {

class BundleMatchesTest : public QueryTest {
 protected:
  std::vector<BundleMatch> match(std::vector<BundleIdentity> bundles) {
    return runVirtual(clock, matchBundles(std::move(bundles), "us", services(), call()));
  }
  static std::string bundles(std::string_view ids) {
    return fmt::format("https://store.example/lookup?bundleId={}&country=us&limit=200", ids);
  }
  static std::string builds(std::string_view ids) {
    return fmt::format(
        "https://web.example/api/apps/v1/catalog/us/apps?ids={}&platform=mac&extend=versionHistory"
        "&l=en-US",
        ids);
  }
  static std::string said(const BundleMatch& match) {
    constexpr std::array kKinds{"found", "not here", "other build", "nothing to ask"};
    std::string text = kKinds.at(static_cast<std::size_t>(match.kind));
    if (match.record) text += fmt::format(" {}", match.record->trackId);
    return text + (match.version ? " v" + *match.version : "");
  }
  static std::vector<std::string> said(const std::vector<BundleMatch>& matches) {
    std::vector<std::string> texts;
    for (const BundleMatch& each : matches) texts.push_back(said(each));
    return texts;
  }
};

TEST_F(BundleMatchesTest, EachBundleFindsTheRecordOfItsBuild) {
  http.answer(lookup("70"), 200,
              answer({R"({"trackId":70,"kind":"software","trackName":"W","version":"7"})"}));
  http.answer(
      bundles("com.gone,com.Mac,com.phone,com.twin,com.universal"), 200,
      answer(
          {R"({"trackId":1,"bundleId":"com.mac","kind":"mac-software","trackName":"A","version":"2"})",
           R"({"trackId":2,"bundleId":"com.twin","kind":"software","trackName":"B","version":"9"})",
           R"({"trackId":3,"bundleId":"com.twin","kind":"mac-software","trackName":"C","version":"3"})",
           R"({"trackId":4,"bundleId":"com.universal","kind":"software","trackName":"D","version":"8"})",
           R"({"trackId":5,"bundleId":"com.phone","kind":"software","trackName":"E","version":"1"})",
           R"({"trackId":6,"bundleId":"com.uninvited","kind":"mac-software","trackName":"F"})"}));
  http.answer(builds("4,5"), 200, R"({"data":[
      {"id":"4","attributes":{"deviceFamilies":["iphone","mac"],"platformAttributes":{
        "ios":{"versionHistory":[{"versionDisplay":"8","releaseDate":"2026-10-01"}]},
        "osx":{"deviceFamilies":["iphone","mac"],
               "versionHistory":[{"versionDisplay":"4.1","releaseDate":"2026-09-01"}]}}}},
      {"id":"5","attributes":{"deviceFamilies":["iphone"],
        "versionHistory":[{"versionDisplay":"1","releaseDate":"2026-09-01"}]}}]})");
  EXPECT_EQ(said(match({{"com.Mac", {}, Platform::mac},
                        {"com.twin", {}, Platform::mac},
                        {"com.twin", {}, Platform::iphone},
                        {"com.universal", {}, Platform::mac},
                        {"com.phone", {}, Platform::mac},
                        {"com.gone", {}, Platform::mac},
                        {"com.other.name", 70, Platform::iphone},
                        {{}, {}, Platform::mac},
                        {"com.evil,com.uninvited", {}, Platform::mac}})),
            (std::vector<std::string>{"found 1 v2", "found 3 v3", "found 2 v9", "found 4 v4.1",
                                      "other build", "not here", "found 70 v7", "nothing to ask",
                                      "not here"}));
}

TEST_F(BundleMatchesTest, WithoutTheCatalogTheMacVersionIsUnknown) {
  http.answer(
      bundles("com.universal"), 200,
      answer(
          {R"({"trackId":4,"bundleId":"com.universal","kind":"software","trackName":"D","version":"8"})"}));
  http.answer(builds("4"), 403, "");
  EXPECT_EQ(said(match({{"com.universal", {}, Platform::mac}})),
            (std::vector<std::string>{"found 4"}));
}

TEST_F(BundleMatchesTest, AsksForAHundredAtATime) {
  std::vector<BundleIdentity> many;
  std::string first;
  for (int i = 100; i <= 200; ++i) {
    many.push_back({fmt::format("com.app{}", i), {}, Platform::mac});
    if (i < 200) first += (i > 100 ? "," : "") + *many.back().bundleId;
  }
  http.answer(bundles(first), 200, answer({}));
  http.answer(
      bundles("com.app200"), 200,
      answer({R"({"trackId":9,"bundleId":"com.app200","kind":"mac-software","trackName":"Z"})"}));
  EXPECT_EQ(match(many).back().record->trackId, 9);
}

}  // namespace
}  // namespace quillet
