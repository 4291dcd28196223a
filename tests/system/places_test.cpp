// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "system/places.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "support/map_environment.h"

namespace quillet {
namespace {

struct PlacesCase {
  const char* situation;
  MapEnvironment::Variables variables;
  const char* data;
  const char* settings;
  const char* cache;
  const char* autostart;
};

#ifndef __APPLE__

TEST(Places, AreTheBaseDirectoriesOfTheUser) {
  const PlacesCase cases[] = {
      {"below home",
       {{"HOME", "/home/ann"}},
       "/home/ann/.local/share/quillet",
       "/home/ann/.config/quillet/quillet.conf",
       "/home/ann/.cache/quillet",
       "/home/ann/.config/autostart"},
      {"each named",
       {{"HOME", "/home/ann"},
        {"XDG_DATA_HOME", "/d"},
        {"XDG_CONFIG_HOME", "/c d"},
        {"XDG_CACHE_HOME", "/e/"}},
       "/d/quillet",
       "/c d/quillet/quillet.conf",
       "/e/quillet",
       "/c d/autostart"},
      {"relative and empty ones are ignored",
       {{"HOME", "/h"},
        {"XDG_DATA_HOME", "data"},
        {"XDG_CONFIG_HOME", ""},
        {"XDG_CACHE_HOME", "~/c"}},
       "/h/.local/share/quillet",
       "/h/.config/quillet/quillet.conf",
       "/h/.cache/quillet",
       "/h/.config/autostart"},
      {"own variable before all, for the data alone",
       {{"HOME", "/h"}, {"XDG_DATA_HOME", "/d"}, {"QUILLET_DATA_DIR", "/library/./x/"}},
       "/library/x/",
       "/h/.config/quillet/quillet.conf",
       "/h/.cache/quillet",
       "/h/.config/autostart"},
  };
  for (const auto& row : cases) {
    const Places places = findPlaces(MapEnvironment(row.variables));
    EXPECT_EQ(places.dataDirectory, row.data) << row.situation;
    EXPECT_EQ(places.settingsFile, row.settings) << row.situation;
    EXPECT_EQ(places.cacheDirectory, row.cache) << row.situation;
    EXPECT_EQ(places.autostartDirectory, row.autostart) << row.situation;
  }
}

#endif

TEST(Places, AreAbsoluteWhateverTheEnvironmentSays) {
  for (const char* home : {"", "relative/home"}) {
    const Places places = findPlaces(MapEnvironment({{"HOME", home}}));
    EXPECT_TRUE(places.dataDirectory.is_absolute()) << home;
    EXPECT_TRUE(places.settingsFile.is_absolute()) << home;
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
