// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "system/places.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "support/map_environment.h"

namespace quillet {
namespace {

#ifndef __APPLE__

TEST(Places, AreTheBaseDirectoriesOfTheUser) {
  const std::tuple<const char*, MapEnvironment::Variables, const char*> cases[] = {
      {"below home",
       {{"HOME", "/h"}},
       "/h/.local/share/quillet /h/.config/quillet/quillet.conf /h/.cache/quillet "
       "/h/.config/autostart /h/.local/state/quillet"},
      {"each named",
       {{"HOME", "/h"},
        {"XDG_DATA_HOME", "/d"},
        {"XDG_CONFIG_HOME", "/c"},
        {"XDG_CACHE_HOME", "/e/"},
        {"XDG_STATE_HOME", "/s"}},
       "/d/quillet /c/quillet/quillet.conf /e/quillet /c/autostart /s/quillet"},
      {"relative and empty ones are ignored",
       {{"HOME", "/h"},
        {"XDG_DATA_HOME", "d"},
        {"XDG_CONFIG_HOME", ""},
        {"XDG_CACHE_HOME", "~/c"},
        {"XDG_STATE_HOME", "s"}},
       "/h/.local/share/quillet /h/.config/quillet/quillet.conf /h/.cache/quillet "
       "/h/.config/autostart /h/.local/state/quillet"},
      {"own variable before all, for the data alone",
       {{"HOME", "/h"}, {"XDG_DATA_HOME", "/d"}, {"QUILLET_DATA_DIR", "/library/./x/"}},
       "/library/x/ /h/.config/quillet/quillet.conf /h/.cache/quillet /h/.config/autostart "
       "/h/.local/state/quillet"},
  };
  for (const auto& [situation, variables, expected] : cases) {
    const auto [data, settings, cache, autostart, state] = findPlaces(MapEnvironment(variables));
    EXPECT_EQ(data.string() + ' ' + settings.string() + ' ' + cache.string() + ' ' +
                  autostart.string() + ' ' + state.string(),
              expected)
        << situation;
  }
}

#endif

TEST(Places, AreAbsoluteWhateverTheEnvironmentSays) {
  for (const char* home : {"", "relative/home"}) {
    const Places places = findPlaces(MapEnvironment({{"HOME", home}}));
    EXPECT_TRUE(places.dataDirectory.is_absolute()) << home;
    EXPECT_TRUE(places.settingsFile.is_absolute()) << home;
    EXPECT_TRUE(places.stateDirectory.is_absolute()) << home;
  }
  const Places places = findPlaces(MapEnvironment({{"QUILLET_DATA_DIR", "lib"}}));
  EXPECT_EQ(places.dataDirectory, std::filesystem::current_path() / "lib");
}

TEST(ProcessEnvironment, ReadsAnEmptyVariableAsUnset) {
  ::setenv("QUILLET_TEST_VARIABLE", "", 1);
  EXPECT_EQ(ProcessEnvironment().get("QUILLET_TEST_VARIABLE"), std::nullopt);
  ::setenv("QUILLET_TEST_VARIABLE", "x", 1);
  EXPECT_EQ(ProcessEnvironment().get("QUILLET_TEST_VARIABLE"), "x");
}

}  // namespace
}  // namespace quillet
