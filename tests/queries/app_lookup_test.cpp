// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "queries/app_lookup.h"

#include "query_test.h"

namespace quillet {
namespace {

class AppLookupTest : public QueryTest {
 protected:
  /// The track ID of what is found; 0 for nothing.
  std::int64_t found(std::string name, std::optional<Platform> platform = {}) {
    NamedApp named{std::move(name), "us", platform};
    const auto app = runVirtual(clock, findApp(std::move(named), services(), call()));
    return app ? app->trackId : 0;
  }
  static std::string lookupBundle(std::string_view id) {
    return fmt::format("https://store.example/lookup?bundleId={}&country=us&limit=200", id);
  }
};

TEST_F(AppLookupTest, ADigitsOnlyNameIsATrackId) {
  http.answer(lookup("11"), 200, answer({R"({"trackId":11,"trackName":"A"})"}));
  http.answer(lookup("12"), 200, answer({}));
  EXPECT_EQ(found("11"), 11);
  EXPECT_EQ(found("12"), 0);
  EXPECT_EQ(found("0") + found("99999999999999999999"), 0) << "asks for nothing that cannot be";
}

TEST_F(AppLookupTest, ChoosesAmongTheRecordsOfABundleId) {
  const std::string twins =
      answer({R"({"trackId":13,"bundleId":"com.other","kind":"mac-software","trackName":"C"})",
              R"({"trackId":14,"bundleId":"com.Twin","kind":"software","trackName":"A"})",
              R"({"trackId":15,"bundleId":"com.twin","kind":"mac-software","trackName":"B"})"});
  for (int i = 0; i < 3; ++i) http.answer(lookupBundle("com.twin"), 200, twins);
  EXPECT_EQ(found("com.twin"), 14);
  EXPECT_EQ(found("com.twin", Platform::mac), 15);
  EXPECT_EQ(found("com.twin", Platform::ipad), 14);
}

}  // namespace
}  // namespace quillet
